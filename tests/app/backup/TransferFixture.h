#pragma once

#include "app/backup/CsvExportView.h"
#include "app/backup/ExportImportView.h"
#include "app/ui/Alert.h"
#include "core/preferences/Preferences.h"
#include "tests/app/backup/BackupFixture.h"

#include <QtCore/QTimer>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

/// The two screens over one small stock, and what their user does with them.
namespace reelhouse::tests {

struct TransferFixture : BackupFixture {
    explicit TransferFixture(StoreKind kind = StoreKind::File)
        : BackupFixture(kind)
    {
    }

    Preferences preferences{folder.filePath(QStringLiteral("preferences.conf"))};
    ExportImportView view{*stock, preferences};
    CsvExportView csvView{*stock};
};

inline QPushButton* buttonOf(const QWidget& screen, const QString& text)
{
    for (auto* button : screen.findChildren<QPushButton*>()) {
        if (button->text() == text)
            return button;
    }
    qFatal("There is no button '%s'.", qPrintable(text));
}

/// The panel that a button opens.
inline QFileDialog* openedPanel(const QWidget& screen, const QString& button)
{
    buttonOf(screen, button)->click();
    auto* panel = screen.findChild<QFileDialog*>();
    if (!panel)
        qFatal("No panel was opened.");
    return panel;
}

/// Chooses a path as the user does and answers yes when asked about a file that exists.
inline void choose(QFileDialog* panel, const QString& path)
{
    panel->findChild<QLineEdit*>()->setText(path);
    QTimer::singleShot(0, panel, [] {
        if (auto* question = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            question && !qobject_cast<QFileDialog*>(question))
            QTest::keyClick(question, Qt::Key_O, Qt::AltModifier);
    });
    QMetaObject::invokeMethod(panel, "accept");
}

/// Waits for the line to say how it ended.
inline QString outcomeOf(const TransferScreen& screen)
{
    const bool ended = QTest::qWaitFor(
        [&] { return !screen.statusText().isEmpty() && !screen.statusText().endsWith(u'…'); });
    return ended ? screen.statusText() : QStringLiteral("(nothing)");
}

inline Alert* askedQuestion(const QWidget& screen)
{
    if (!QTest::qWaitFor([&] { return screen.findChild<Alert*>() != nullptr; }))
        return nullptr;
    return screen.findChild<Alert*>();
}

/// Answers the question before an import with yes.
inline void confirmImport(const QWidget& screen)
{
    Alert* question = askedQuestion(screen);
    if (!question)
        qFatal("Nothing was asked.");
    buttonOf(*question, QStringLiteral("Importer et tout remplacer"))->click();
}

inline QByteArray smallDocument()
{
    return R"({"brands":[],"filaments":[{"colorHex":"#00F","colorName":"Bleu",)"
           R"("dateAdded":"2025-03-14T09:26:53Z","notes":"","spoolsCount":1}],)"
           R"("locations":[],"ranges":[],"types":[]})";
}

} // namespace reelhouse::tests
