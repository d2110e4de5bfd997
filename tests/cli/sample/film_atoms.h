#ifndef TESTS_CLI_SAMPLE_FILM_ATOMS_H
#define TESTS_CLI_SAMPLE_FILM_ATOMS_H

#include <QByteArray>
#include <QString>
#include <QVector>

#include <optional>

/// What a QuickTime film with one track tells about itself.
struct FilmFacts {
    QString brand;
    double seconds = 0;
    int width = 0;
    int height = 0;
    QString codec;
    QVector<QByteArray> samples; ///< the bytes that the tables point to
};

/// Nothing when an atom is missing, is cut off, or its table points outside the file.
std::optional<FilmFacts> readFilm(const QByteArray &file);

#endif
