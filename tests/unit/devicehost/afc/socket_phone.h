#ifndef TESTS_UNIT_DEVICEHOST_AFC_SOCKET_PHONE_H
#define TESTS_UNIT_DEVICEHOST_AFC_SOCKET_PHONE_H

#include "memory_phone.h"

#include "devicehost/afc/session.h"
#include "devicehost/vdev/unique_fd.h"

#include <array>
#include <atomic>
#include <memory>
#include <thread>

#include <poll.h>
#include <sys/socket.h>

/// The far end of a connection over sockets, which never answers as it should. Waits on its sockets have no time-out:
/// only a shutdown ends them.
class SocketPhone
{
public:
    ~SocketPhone()
    {
        ending = true;
        if (trickler.joinable())
            trickler.join();
    }

    std::shared_ptr<devicehost::afc::Session> session(std::chrono::milliseconds patience,
                                                      std::function<bool()> stopRequested)
    {
        return std::make_shared<devicehost::afc::Session>(std::make_unique<PairConnector>(this), patience,
                                                          std::move(stopRequested));
    }

    int connections() const { return made; }

    /// Returns when a request has come.
    void awaitRequest()
    {
        while (far.load() < 0)
            std::this_thread::yield();
        pollfd waiting = {far, POLLIN, 0};
        ::poll(&waiting, 1, -1);
    }

    /// Ends the newest connection.
    void hangUp() { ::shutdown(far, SHUT_RDWR); }

    /// From the first request on, an answer is sent that takes a minute.
    void trickle()
    {
        trickler = std::thread([this] {
            awaitRequest();
            const QByteArray answer =
                MemoryPhone::answer(1, devicehost::afc::Operation::Data, QByteArray(), QByteArray(60000, 'x'));
            for (int i = 0; i < answer.size() && !ending; ++i) {
                ::send(far, answer.constData() + i, 1, MSG_NOSIGNAL);
                std::this_thread::sleep_for(std::chrono::milliseconds(1));
            }
        });
    }

private:
    class PairTransport final : public devicehost::afc::Transport
    {
    public:
        explicit PairTransport(devicehost::UniqueFd end) : descriptor(std::move(end)) {}

        bool send(const char *bytes, std::size_t size) override
        {
            return ::send(descriptor.get(), bytes, size, MSG_NOSIGNAL) == static_cast<ssize_t>(size);
        }
        qint64 receive(char *buffer, std::size_t size, std::chrono::milliseconds) override
        {
            const ssize_t count = ::recv(descriptor.get(), buffer, size, 0);
            return count > 0 ? count : ended;
        }
        int socket() const override { return descriptor.get(); }

    private:
        const devicehost::UniqueFd descriptor;
    };

    class PairConnector final : public devicehost::afc::Connector
    {
    public:
        explicit PairConnector(SocketPhone *connected) : phone(connected) {}

        std::unique_ptr<devicehost::afc::Transport> connect(std::chrono::milliseconds, const std::function<bool()> &,
                                                            devicehost::VError *) override
        {
            std::array<int, 2> ends = {};
            if (::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends.data()) != 0)
                return nullptr;
            const int number = phone->made++;
            phone->kept.at(static_cast<std::size_t>(number)) = devicehost::UniqueFd(ends[1]);
            phone->far = ends[1];
            return std::make_unique<PairTransport>(devicehost::UniqueFd(ends[0]));
        }

    private:
        SocketPhone *const phone;
    };

    std::array<devicehost::UniqueFd, 8> kept;
    std::atomic<int> made{0};
    std::atomic<int> far{-1};
    std::atomic<bool> ending{false};
    std::thread trickler;
};

#endif
