#ifndef PHOTOLIB_HOST_IIPOD_H
#define PHOTOLIB_HOST_IIPOD_H

#include "photolib/export.h"

#include <QString>

/// The host's device object.
///
/// Ownership: the host makes it, keeps it alive until releasePhotolib() has returned, and destroys it.
/// Threads: every function is called on the thread that called the library; shouldStop() and devicePath() may
/// run on several threads at once when the host calls the library from several threads.
///
/// The position of a function in this class is its slot in the table of virtual functions, counted from 0, and
/// part of the binary interface. The library calls slots 7, 16, 46 and 56 only. The class has no virtual
/// destructor, so that a slot number is the raw table position on every ABI.
class PHOTOLIB_HOST IIPod
{
public:
    virtual void reserved0() {}
    virtual void reserved1() {}
    virtual void reserved2() {}
    virtual void reserved3() {}
    virtual void reserved4() {}
    virtual void reserved5() {}
    virtual void reserved6() {}

    /// Slot 7. True when the library must not be opened, or an opening must end: files of the database are then
    /// no longer copied, and photo_manager_int::openLibrary() fails.
    virtual bool shouldStop() = 0;

    virtual void reserved8() {}
    virtual void reserved9() {}
    virtual void reserved10() {}
    virtual void reserved11() {}
    virtual void reserved12() {}
    virtual void reserved13() {}
    virtual void reserved14() {}
    virtual void reserved15() {}

    /// Slot 16. The name of the device, handed to vDevOpen() with VDevDevice. An empty name has no
    /// meaning of its own to the library: it is handed on as an empty text, and vDevOpen() decides what it opens.
    virtual QString devicePath() = 0;

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

    /// Slot 46. False: getPhotolib() makes no manager.
    virtual bool isAvailable() = 0;

    virtual void reserved47() {}
    virtual void reserved48() {}
    virtual void reserved49() {}
    virtual void reserved50() {}
    virtual void reserved51() {}
    virtual void reserved52() {}
    virtual void reserved53() {}
    virtual void reserved54() {}
    virtual void reserved55() {}

    /// Slot 56. The local folder that receives the copy of the device's database. It is used as a prefix as it
    /// stands, so it must end in a separator. Empty: the system's folder for temporary files is used.
    virtual QString localDataFolder() = 0;

protected:
    ~IIPod() = default;
};

#endif
