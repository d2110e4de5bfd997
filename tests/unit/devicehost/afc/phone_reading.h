#ifndef TESTS_UNIT_DEVICEHOST_AFC_PHONE_READING_H
#define TESTS_UNIT_DEVICEHOST_AFC_PHONE_READING_H

#include "devicehost/afc/device.h"
#include "devicehost/vdev/verror.h"

#include <QByteArray>

#include <memory>

/// What became of reading a file to its end.
struct Reading {
    bool opened = false;
    bool complete = false; ///< the end was reported: `content` claims to be the whole file
    QByteArray content;
    devicehost::VError error;
};

/// Opens the device and a file of it, reads it in blocks of `block` bytes and closes both.
Reading readOverSession(const std::shared_ptr<devicehost::afc::Session> &session, const char *path, int block = 4096);

/// Content in which no two places look alike, so that a wrong offset shows.
QByteArray patterned(int size);

#endif
