#ifndef DEVICEHOST_AFC_USB_HANDLES_H
#define DEVICEHOST_AFC_USB_HANDLES_H

#include "devicehost/afc/pipe_signal.h"

#include <libimobiledevice/libimobiledevice.h>
#include <libimobiledevice/lockdown.h>

#include <memory>
#include <type_traits>

namespace devicehost::afc
{

/// Frees what libimobiledevice gave. Closing an encrypted connection writes to it.
struct UsbCloser {
    void operator()(idevice_t device) const { idevice_free(device); }
    void operator()(lockdownd_client_t client) const
    {
        const PipeSignalBlock block;
        lockdownd_client_free(client);
    }
    void operator()(lockdownd_service_descriptor_t service) const { lockdownd_service_descriptor_free(service); }
    void operator()(idevice_connection_t connection) const
    {
        const PipeSignalBlock block;
        idevice_disconnect(connection);
    }
};

template <class Pointer>
using UsbHandle = std::unique_ptr<std::remove_pointer_t<Pointer>, UsbCloser>;

using DeviceHandle = UsbHandle<idevice_t>;
using LockdownHandle = UsbHandle<lockdownd_client_t>;
using ServiceHandle = UsbHandle<lockdownd_service_descriptor_t>;
using ConnectionHandle = UsbHandle<idevice_connection_t>;

} // namespace devicehost::afc

#endif
