#pragma once
// How a second start brings the running instance's window to the front. The
// lock alone says whether an instance runs; the instance that holds it also
// listens on a local socket beside the lock file, and a second start that
// finds the lock held rings there before it ends. A ring un-minimises the
// window and raises it.

#include <QObject>
#include <string>

#include "foundation/FileDescriptor.h"
#include "platform/InstanceLock.h"

class QSocketNotifier;
class QWidget;

class TRaiseChannel : public QObject {
    Q_OBJECT
public:
    // The socket beside the lock file of lockName.
    static std::string PathFor(const std::string& lockName);
    // Rings the instance listening at path; false if none answers.
    static bool Ring(const std::string& path);

    // Listens at path (only the holder of the lock may) for rings to raise window.
    TRaiseChannel(const std::string& path, QWidget& window);
    ~TRaiseChannel() override;
    bool Listening() const { return listener.IsOpen(); }

signals:
    void rung();

private:
    void Answer();

    std::string path;
    QWidget& window;
    TFileDescriptor listener;
    QSocketNotifier* notifier = nullptr; // a child of this object
};
