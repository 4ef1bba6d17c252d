#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QPointer>
#include <QtCore/QThreadPool>

#include <memory>

namespace reelhouse {

/// Runs `work`, which touches nothing but what it owns, on another thread; then hands what it
/// returned to `done` on the main thread, unless `receiver` is gone by then. Called on the main
/// thread. The program waits for the work before it ends.
template <class Work, class Done>
void runInBackground(QObject* receiver, Work work, Done done)
{
    QThreadPool::globalInstance()->start(
        [guard = QPointer<QObject>(receiver), work = std::move(work), done = std::move(done)] {
            auto result = std::make_shared<decltype(work())>(work());
            QMetaObject::invokeMethod(
                QCoreApplication::instance(),
                [guard, done, result] {
                    if (guard)
                        done(std::move(*result));
                },
                Qt::QueuedConnection);
        });
}

} // namespace reelhouse
