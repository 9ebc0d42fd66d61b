#include <QCoreApplication>
#include <QEvent>
#include <QGenericPlugin>
#include <QWidget>

#include <array>
#include <climits>
#include <cstdlib>
#include <cstring>
#include <ctime>

#include <fcntl.h>
#include <unistd.h>

namespace numbrela {

namespace {

void writeAll(int pipe, const char* bytes, std::size_t count)
{
    while (count > 0) {
        const ssize_t written = write(pipe, bytes, count);
        if (written <= 0) {
            _exit(EXIT_FAILURE);
        }
        bytes += written;
        count -= static_cast<std::size_t>(written);
    }
}

// Copies a small file of the kernel's into the pipe; nothing when it cannot be read.
void copyFile(const char* path, int pipe)
{
    const int file = open(path, O_RDONLY | O_CLOEXEC);
    std::array<char, 4096> buffer {};
    for (ssize_t count = 0; (count = read(file, buffer.data(), buffer.size())) > 0;) {
        writeAll(pipe, buffer.data(), static_cast<std::size_t>(count));
    }
    close(file);
}

// Waits in a program until its first window has been painted, tells a pipe when that was and how much memory the
// process had then, and ends the process. The program needs to know nothing of it and runs exactly as it ships. It
// works in buffers on the stack, so as not to add to what it measures.
class FirstPaint : public QObject {
public:
    explicit FirstPaint(int pipe)
        : pipe_(pipe)
    {
        QCoreApplication::instance()->installEventFilter(this);
    }

    // The paint event of the window comes first, then those of its children, then all goes to the screen. An event of
    // our own that stands in the queue meanwhile is delivered after that.
    bool eventFilter(QObject* receiver, QEvent* event) override
    {
        const bool paintsWindow
            = event->type() == QEvent::Paint && receiver->isWidgetType() && static_cast<QWidget*>(receiver)->isWindow();
        if (paintsWindow && !painted_) {
            painted_ = true;
            QCoreApplication::postEvent(this, new QEvent(QEvent::User), INT_MAX);
        }
        return false;
    }

    bool event(QEvent* event) override
    {
        if (event->type() == QEvent::User) {
            tellAndEnd();
        }
        return QObject::event(event);
    }

private:
    [[noreturn]] void tellAndEnd() const
    {
        timespec now {};
        clock_gettime(CLOCK_MONOTONIC, &now);
        std::array<char, 64> line {};
        const int length = std::snprintf(line.data(), line.size(), "FirstPaint: %lld\n",
            static_cast<long long>(now.tv_sec) * 1'000'000'000 + now.tv_nsec);
        writeAll(pipe_, line.data(), static_cast<std::size_t>(length));
        copyFile("/proc/self/status", pipe_);
        copyFile("/proc/self/smaps_rollup", pipe_);
        _exit(EXIT_SUCCESS);
    }

    int pipe_;
    bool painted_ = false;
};

} // namespace

class FirstPaintPlugin : public QGenericPlugin {
    Q_OBJECT
    Q_PLUGIN_METADATA(IID QGenericPluginFactoryInterface_iid FILE "FirstPaint.json")

public:
    // The parameter is the number of the pipe's file descriptor, as in QT_QPA_GENERIC_PLUGINS=firstpaint:5.
    QObject* create(const QString& /*name*/, const QString& parameter) override
    {
        return new FirstPaint(parameter.toInt());
    }
};

} // namespace numbrela

#include "FirstPaint.moc"
