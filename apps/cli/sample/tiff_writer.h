#ifndef APPS_CLI_SAMPLE_TIFF_WRITER_H
#define APPS_CLI_SAMPLE_TIFF_WRITER_H

#include <QByteArray>
#include <QVector>

namespace sample
{

/// Builds a little-endian TIFF, the container of both EXIF data and raw pictures.
class TiffWriter
{
public:
    enum Type : quint16 { Byte = 1, Ascii = 2, Short = 3, Long = 4, Rational = 5, SignedRational = 10 };

    /// A directory of tags. Tags are to be added in ascending order, as the format demands.
    struct Directory {
        struct Entry {
            quint16 tag;
            quint16 type;
            quint32 count;
            QByteArray data;
            int link;   ///< number of the directory that the entry points to, -1: none
            bool strip; ///< the entry points to the pixel data
        };
        QVector<Entry> entries;

        void addBytes(quint16 tag, const QByteArray &bytes);
        void addText(quint16 tag, const QByteArray &text);
        void addShorts(quint16 tag, const QVector<quint16> &values);
        void addLong(quint16 tag, quint32 value);
        /// Numerators and denominators in turn; `isSigned` chooses the type.
        void addRationals(quint16 tag, const QVector<qint32> &parts, bool isSigned = false);
        void addLink(quint16 tag, int directory);
        void addStrip(quint16 tag);
    };

    /// The first directory is the main one.
    static QByteArray build(const QVector<Directory> &directories, const QByteArray &pixels = QByteArray());
};

/// Appends a number in little-endian or big-endian order.
void appendLittle(QByteArray &bytes, quint32 value, int size);
void appendBig(QByteArray &bytes, quint32 value, int size);

} // namespace sample

#endif
