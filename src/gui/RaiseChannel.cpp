#include "gui/RaiseChannel.h"

#include <QApplication>
#include <QSocketNotifier>
#include <QWidget>
#include <cstring>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

namespace {

// False when path is too long for a socket address.
bool AddressOf(const std::string& path, sockaddr_un& address) {
    std::memset(&address, 0, sizeof address);
    address.sun_family = AF_UNIX;
    if (path.size() >= sizeof address.sun_path) return false;
    std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
    return true;
}

TFileDescriptor StreamSocket() {
    return TFileDescriptor(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0));
}

} // namespace

std::string TRaiseChannel::PathFor(const std::string& lockName) {
    const std::string lock = TInstanceLock::PathFor(lockName);
    const std::string suffix = ".lock";
    return lock.ends_with(suffix) ? lock.substr(0, lock.size() - suffix.size()) + ".raise"
                                  : lock + ".raise";
}

bool TRaiseChannel::Ring(const std::string& path) {
    sockaddr_un address;
    if (!AddressOf(path, address)) return false;
    const TFileDescriptor socket = StreamSocket();
    if (!socket.IsOpen() ||
        ::connect(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
        return false;
    return WriteAll(socket.Get(), "raise\n");
}

TRaiseChannel::TRaiseChannel(const std::string& path, QWidget& window)
    : path(path), window(window) {
    sockaddr_un address;
    if (!AddressOf(path, address)) return;
    TFileDescriptor socket = StreamSocket();
    if (!socket.IsOpen()) return;
    // A socket file left by an instance that crashed: we hold the lock, so it is stale.
    ::unlink(path.c_str());
    if (::bind(socket.Get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0 ||
        ::listen(socket.Get(), 4) != 0)
        return;
    listener = std::move(socket);
    notifier = new QSocketNotifier(listener.Get(), QSocketNotifier::Read, this);
    connect(notifier, &QSocketNotifier::activated, this, &TRaiseChannel::Answer);
}

TRaiseChannel::~TRaiseChannel() {
    if (listener.IsOpen()) ::unlink(path.c_str());
}

void TRaiseChannel::Answer() {
    const TFileDescriptor caller(::accept4(listener.Get(), nullptr, nullptr, SOCK_CLOEXEC));
    if (!caller.IsOpen()) return;
    // Whatever the caller wrote, a ring is a ring; nothing it sends is read as a command.
    window.setWindowState((window.windowState() & ~Qt::WindowMinimized) | Qt::WindowActive);
    window.show();
    window.raise();
    window.activateWindow();
    // A modal dialog open over the window comes to the front with it.
    if (QWidget* modal = QApplication::activeModalWidget()) {
        modal->raise();
        modal->activateWindow();
    }
    emit rung();
}
