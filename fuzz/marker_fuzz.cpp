// The property list that names the library in use: the bytes as they stand, or a list that they decide on. The parser
// is not instrumented, so the fuzzer alone would hardly find its way past the first tags.

#include "devicehost/device_host.h"
#include "fuzz/byte_reader.h"
#include "fuzz/device_folder.h"
#include "fuzz/require.h"
#include "photolib/current_library_uuid.h"

#include <iterator>

namespace
{

constexpr int deepest = 6;

constexpr const char *scalars[] = {
    "<string>B0000000-0000-4000-8000-000000000001</string>",
    "<string/>",
    "<string></string>",
    "<string>&lt;&#x41;&#65;&amp;&bad;&#0;&#x110000;</string>",
    "<string><![CDATA[ ]]>]]></string>",
    "<integer>-9223372036854775809</integer>",
    "<integer>0x</integer>",
    "<real>1e999</real>",
    "<true/>",
    "<false/>",
    "<date>2020-01-01T00:00:00Z</date>",
    "<date>99999999999-99-99T99:99:99Z</date>",
    "<data>QUJD=</data>",
    "<data>  </data>",
    "<uid/>",
    "<!-- ",
    "<?x ?>",
    "<string attribute='1'>a</string>",
    "<string>",
    "</dict>",
};

QByteArray closing(const char *tag, fuzz::ByteReader *in)
{
    return in->seldom(32) ? QByteArray() : QByteArray(tag);
}

QByteArray anyValue(fuzz::ByteReader *in, int depth);

QByteArray anyDictionary(fuzz::ByteReader *in, int depth)
{
    QByteArray text = "<dict>";
    for (int left = in->choice(5); left > 0; --left) {
        const QByteArray key = in->choice(3) == 0 ? QByteArray("libraryUUID") : in->text().left(16);
        text += "<key>" + key + closing("</key>", in) + anyValue(in, depth + 1);
    }
    return text + closing("</dict>", in);
}

QByteArray anyValue(fuzz::ByteReader *in, int depth)
{
    switch (in->choice(depth < deepest ? 8 : 4)) {
    case 0:
    case 1:
        return scalars[in->choice(static_cast<int>(std::size(scalars)))];
    case 2:
        return "<string>" + in->text() + closing("</string>", in);
    case 3: // far deeper than any list
        return QByteArray(in->flag() ? "<array>" : "<dict><key>a</key>").repeated(in->choice(4096));
    case 4:
        return "<array>" + anyValue(in, depth + 1) + anyValue(in, depth + 1) + closing("</array>", in);
    default:
        return anyDictionary(in, depth);
    }
}

QByteArray anyList(fuzz::ByteReader *in)
{
    QByteArray text = in->seldom(8) ? in->text() : QByteArray("<?xml version=\"1.0\" encoding=\"UTF-8\"?>");
    if (in->flag())
        text += "<!DOCTYPE plist PUBLIC \"" + in->text() + "\" [" + (in->flag() ? "<!ELEMENT a>" : "") + "]>";
    return text + "<plist version=\"1.0\"><dict><key>libraryUUID</key>" + anyValue(in, 0) + "<key>b</key>" +
           anyValue(in, 0) + closing("</dict>", in) + closing("</plist>", in);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static fuzz::DeviceFolder device;
    static devicehost::DeviceHost host(device.name());
    fuzz::ByteReader in(data, size);
    const bool asItStands = (in.byte() & 1) == 0;
    const QByteArray content = asItStands ? in.rest() : anyList(&in);
    device.put(QStringLiteral("/Photos/Sync/CurrentLibraryUUID.plist"), content);
    QByteArray uuid;
    photolib::readCurrentLibraryUuid(&host, &uuid);
    fuzz::require(uuid.size() <= content.size(), "the value is a part of the file");
    return 0;
}
