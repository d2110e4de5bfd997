#ifndef PHOTOLIB_HOST_IIPOD_H
#define PHOTOLIB_HOST_IIPOD_H

/// @file
/// The host's device object.

#include "photolib/export.h"

#include <QString>

/// The host's device object.
///
/// Ownership: the host makes it, keeps it alive until releasePhotolib() has returned, and destroys it. Texts that it
/// answers are values; the library keeps none.
///
/// Threads: every function is called on the thread that called the library; shouldStop() and devicePath() may
/// run on several threads at once when the host calls the library from several threads.
///
/// Failure: no function may throw, and none may call the manager that calls it.
///
/// The position of a function in this class is its slot in the table of virtual functions, counted from 0, and
/// part of the binary interface. The library calls slots 7, 16, 46 and 56 only. The class has no virtual
/// destructor, so that a slot number is the raw table position on every ABI.
class PHOTOLIB_HOST IIPod
{
public:
    // The functions that the library does not call only keep the places of the others.
    /// @cond
    virtual void reserved0() {}
    virtual void reserved1() {}
    virtual void reserved2() {}
    virtual void reserved3() {}
    virtual void reserved4() {}
    virtual void reserved5() {}
    virtual void reserved6() {}
    /// @endcond

    /// Slot 7. True when the library must not be opened, or an opening must end. Asked by
    /// photo_manager_int::openLibrary() only: before each of the three files of the database, which is then not copied,
    /// and once after the database was read; the opening then fails. A host that wants to end a copy that runs lets
    /// vFileRead() answer an error, too.
    virtual bool shouldStop() = 0;

    /// @cond
    virtual void reserved8() {}
    virtual void reserved9() {}
    virtual void reserved10() {}
    virtual void reserved11() {}
    virtual void reserved12() {}
    virtual void reserved13() {}
    virtual void reserved14() {}
    virtual void reserved15() {}
    /// @endcond

    /// Slot 16. The name of the device, asked anew for each vDevOpen() with VDevDevice, and handed to it: as UTF-8 for
    /// the files of the database, in the local 8-bit encoding (QString::toLocal8Bit()) for all others. An empty name
    /// has no meaning of its own to the library: it is handed on as an empty text, and vDevOpen() decides what it
    /// opens.
    virtual QString devicePath() = 0;

    /// @cond
    virtual void reserved17() {}
    virtual void reserved18() {}
    virtual void reserved19() {}
    virtual void reserved20() {}
    virtual void reserved21() {}
    virtual void reserved22() {}
    virtual void reserved23() {}
    virtual void reserved24() {}
    virtual void reserved25() {}
    virtual void reserved26() {}
    virtual void reserved27() {}
    virtual void reserved28() {}
    virtual void reserved29() {}
    virtual void reserved30() {}
    virtual void reserved31() {}
    virtual void reserved32() {}
    virtual void reserved33() {}
    virtual void reserved34() {}
    virtual void reserved35() {}
    virtual void reserved36() {}
    virtual void reserved37() {}
    virtual void reserved38() {}
    virtual void reserved39() {}
    virtual void reserved40() {}
    virtual void reserved41() {}
    virtual void reserved42() {}
    virtual void reserved43() {}
    virtual void reserved44() {}
    virtual void reserved45() {}
    /// @endcond

    /// Slot 46. Whether the device can be used. Asked once by getPhotolib(); false: it makes no manager.
    virtual bool isAvailable() = 0;

    /// @cond
    virtual void reserved47() {}
    virtual void reserved48() {}
    virtual void reserved49() {}
    virtual void reserved50() {}
    virtual void reserved51() {}
    virtual void reserved52() {}
    virtual void reserved53() {}
    virtual void reserved54() {}
    virtual void reserved55() {}
    /// @endcond

    /// Slot 56. The local folder that receives the copy of the device's database. Asked once by each opening. It is
    /// used as a prefix as it stands, so it must end in a separator; vDevCreateDir() creates it. Empty: the system's
    /// folder for temporary files is used. The copy stays there: removing it is the host's. Old companions of another
    /// database
    /// ("Photos.sqlite-wal", "Photos.sqlite-shm") must not be there, so give each device a folder of its own.
    virtual QString localDataFolder() = 0;

protected:
    /// The library never destroys the object.
    ~IIPod() = default;
};

#endif
