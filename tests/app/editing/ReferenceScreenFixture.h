#pragma once

#include "app/editing/ReferenceListView.h"
#include "app/editing/ReferenceManagementView.h"
#include "app/editing/ReferenceSheet.h"
#include "app/ui/Alert.h"
#include "core/model/StoreContext.h"
#include "tests/support/MemoryStock.h"

#include <QtTest/QTest>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

namespace reelhouse::tests {

/// The screen of one reference list over an empty stock.
struct ReferenceScreenFixture {
    explicit ReferenceScreenFixture(ReferenceKind kind)
        : screen(std::make_unique<ReferenceManagementView>(context, kind, nullptr))
    {
        screen->resize(1080, 800);
        screen->show();
    }

    template <class T>
    T& add(const QString& name, int filaments = 0)
    {
        T& entry = context.insert(std::make_unique<T>(name));
        for (int number = 0; number < filaments; ++number) {
            auto filament = std::make_unique<Filament>(nullptr, nullptr, nullptr, nullptr, 2, 0,
                QStringLiteral("#43A047"), QString(), QString());
            if constexpr (std::is_same_v<T, Brand>)
                filament->setBrand(&entry);
            context.insert(std::move(filament));
        }
        context.processPendingChanges();
        return entry;
    }

    ReferenceListView& list() const { return *screen->findChild<ReferenceListView*>(); }
    QStringList rows() const
    {
        QStringList texts;
        for (int row = 0; row < list().model()->rowCount(); ++row)
            texts += list().model()->index(row, 0).data(Qt::AccessibleTextRole).toString();
        return texts;
    }
    void select(int row) const { list().setCurrentIndex(list().model()->index(row, 0)); }
    /// Once the window is active: a shortcut works in no other.
    void press(Qt::Key key) const
    {
        QVERIFY(QTest::qWaitForWindowActive(screen.get()));
        list().setFocus();
        QTest::keyClick(&list(), key);
    }
    bool shows(const QString& text) const
    {
        const auto labels = screen->findChildren<QLabel*>();
        return std::ranges::any_of(labels,
            [&](const QLabel* label) { return label->isVisible() && label->text() == text; });
    }
    static QPushButton& button(const QWidget& parent, const QString& text)
    {
        const auto buttons = parent.findChildren<QPushButton*>();
        const auto found = std::ranges::find(buttons, text, &QPushButton::text);
        Q_ASSERT(found != buttons.end());
        return **found;
    }
    ReferenceSheet& openAddSheet(const QString& command)
    {
        button(*screen, command).click();
        return *sheet();
    }
    ReferenceSheet* sheet() const
    {
        const auto sheets = screen->findChildren<ReferenceSheet*>();
        const auto open = std::ranges::find_if(sheets, &QWidget::isVisible);
        return open == sheets.end() ? nullptr : *open;
    }
    Alert* alert() const
    {
        const auto alerts = screen->findChildren<Alert*>();
        const auto open = std::ranges::find_if(alerts, &QWidget::isVisible);
        return open == alerts.end() ? nullptr : *open;
    }

    std::unique_ptr<StoreContainer> stock = tests::makeMemoryStock();
    StoreContext& context = stock->context();
    std::unique_ptr<ReferenceManagementView> screen;
};

/// Makes `text` the name in the sheet, as a user does.
inline void typeName(const ReferenceSheet& sheet, const QString& text)
{
    auto* field = sheet.findChild<QLineEdit*>();
    field->setFocus();
    field->selectAll();
    QTest::keyClick(field, Qt::Key_Delete);
    QTest::keyClicks(field, text);
}

} // namespace reelhouse::tests
