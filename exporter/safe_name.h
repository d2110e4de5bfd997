#ifndef EXPORTER_SAFE_NAME_H
#define EXPORTER_SAFE_NAME_H

#include <QString>

namespace exporter
{

/// Longest folder name and stem, in bytes of UTF-8. File systems hold 255; the rest is for an extension, "_edited",
/// a number in parentheses, and the position in an album.
inline constexpr int maximalNameBytes = 200;
inline constexpr int maximalExtensionBytes = 16;

/// `name` as one folder name or stem that means the same on every file system: without separators, control and
/// direction characters, characters and device names that Windows reserves, dots in front, dots and blanks at the end;
/// composed (NFC), and cut to `maximalBytes` at a character. Never empty, "." or "..".
QString safeName(const QString &name, int maximalBytes = maximalNameBytes);

/// `extension` (without dot) in the same way; empty stays empty.
QString safeExtension(const QString &extension);

/// The part of a file name before its last dot, and behind it. A name with no dot, or only one in front, is all stem.
QString stemOf(const QString &fileName);
QString extensionOf(const QString &fileName);

/// What is equal for all names or paths that a file system may take for the same.
QString foldedName(const QString &name);

} // namespace exporter

#endif
