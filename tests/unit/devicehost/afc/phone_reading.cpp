#include "phone_reading.h"

Reading readOverSession(const std::shared_ptr<devicehost::afc::Session> &session, const char *path, int block)
{
    Reading result;
    const std::unique_ptr<VDev> device = devicehost::afc::openDevice(session, &result.error);
    if (device == nullptr)
        return result;
    const std::unique_ptr<VFile> file = device->openFile(path, 0, &result.error);
    if (file == nullptr)
        return result;
    result.opened = true;
    QByteArray buffer(block, '\0');
    for (;;) {
        const qint64 count = file->read(buffer.data(), block, &result.error);
        if (count <= 0) {
            result.complete = count == 0;
            return result;
        }
        result.content.append(buffer.constData(), static_cast<int>(count));
    }
}

QByteArray patterned(int size)
{
    QByteArray bytes(size, '\0');
    quint32 state = 12345;
    for (int i = 0; i < size; ++i) {
        state = state * 1664525 + 1013904223;
        bytes[i] = static_cast<char>(state >> 24);
    }
    return bytes;
}
