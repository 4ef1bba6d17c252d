#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QFile>

#include <malloc.h>

namespace reelhouse::bench {

/// A line of what the system tells about this process, such as "VmRSS", in bytes.
inline qint64 processBytes(const char* line)
{
    QFile file(QStringLiteral("/proc/self/status"));
    if (!file.open(QIODevice::ReadOnly))
        qFatal("The system does not tell how much memory is used.");
    for (const QByteArray& text : file.readAll().split('\n')) {
        if (text.startsWith(line))
            return text.mid(qsizetype(qstrlen(line)) + 1).replace("kB", "").trimmed().toLongLong()
                * 1024;
    }
    qFatal("The system does not tell %s.", line);
}

/// The memory in RAM that `work` needed at once, beyond what was there before, in bytes.
template <class Work>
double peakBytesOf(Work work)
{
    malloc_trim(0); // What earlier measurements freed would be used again unseen.
    QFile highest(QStringLiteral("/proc/self/clear_refs"));
    if (!highest.open(QIODevice::WriteOnly | QIODevice::Unbuffered) || highest.write("5") != 1)
        qFatal("The system does not forget the highest use of memory.");
    const qint64 before = processBytes("VmRSS");
    work();
    return double(processBytes("VmHWM") - before);
}

} // namespace reelhouse::bench
