#ifndef TESTS_UNIT_EXPORTER_FAULT_SCENE_H
#define TESTS_UNIT_EXPORTER_FAULT_SCENE_H

#include "tests/unit/exporter/export_fixture.h"

#include <QSet>

/// A library with one of everything that an export handles: a Live Photo with its film, an edited photo with notes, a
/// film, and an album. The host tells why a file could not be opened, as hosts shall.
class FaultScene
{
public:
    FaultScene();
    ~FaultScene();
    FaultScene(const FaultScene &) = delete;
    FaultScene &operator=(const FaultScene &) = delete;

    /// What changes on the device after a first run: other notes, a new photo, an album that grows.
    void changeDevice();

    /// Exports everything in the same opening of the library.
    exporter::RunOutcome run() { return fixture.run(ids); }

    /// What an undisturbed run leaves in the destination.
    Tree expected() const { return changed ? expectedLater() : expectedFirst(); }

    /// Fails the test for each file under a name that an undisturbed run does not give, or with other content, for
    /// descriptors that stayed open, for reports of other bytes than those on the device, and for failures without a
    /// reason.
    void expectSound(const exporter::RunOutcome &outcome);

    ExportFixture fixture;

private:
    /// In memory where the system has such a folder: a scene is exported some thousand times, and every run waits for
    /// the disk at each file.
    QTemporaryDir destination;

    void addFile(const QString &path, const QByteArray &content);
    void remember(const QString &directory, const QString &fileName, const QByteArray &content);
    static Tree expectedFirst();
    static Tree expectedLater();

    QMap<QString, QByteArray> files; ///< on the device, by path
    QString lastOpened;
    QList<qint64> ids;
    bool changed = false;
    qint64 album = 0;
    int openDescriptors = 0;
};

#endif
