#pragma once

#include "app/ui/ColorWell.h"
#include "app/ui/NotesField.h"
#include "app/ui/Picker.h"
#include "app/ui/Stepper.h"
#include "core/model/StoreContext.h"
#include "tests/support/RecordingStore.h"

#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QPushButton>

namespace reelhouse::tests {

/// A small stock under a window, for the sheets that edit it.
struct EditorFixture {
    EditorFixture()
    {
        window.resize(1100, 800);
        window.show();
        context.processPendingChanges();
        context.clearHistory();
    }

    tests::RecordingStore store;
    StoreContext context{store};
    FilamentType& pla10{context.insert(std::make_unique<FilamentType>(QStringLiteral("PLA 10")))};
    FilamentType& pla2{context.insert(
        std::make_unique<FilamentType>(QStringLiteral("pla 2"), QStringLiteral("leaf.fill")))};
    FilamentType& abs{context.insert(std::make_unique<FilamentType>(QStringLiteral("ABS")))};
    Brand& acme{context.insert(std::make_unique<Brand>(QStringLiteral("Acme")))};
    Brand& zenith{context.insert(std::make_unique<Brand>(QStringLiteral("Zénith")))};
    FilamentRange& mat{context.insert(std::make_unique<FilamentRange>(QStringLiteral("Mat")))};
    Location& shelf{context.insert(std::make_unique<Location>(QStringLiteral("Étagère 2")))};
    QWidget window;
};

/// The controls of one sheet, found by what stands in front of them.
class EditorControls final {
public:
    explicit EditorControls(QWidget& sheet)
        : m_sheet(sheet)
    {
    }

    template <class Control>
    Control* control(const QString& label) const
    {
        for (const QLabel* found : m_sheet.findChildren<QLabel*>()) {
            if (found->text().startsWith(label) && qobject_cast<Control*>(found->buddy()))
                return qobject_cast<Control*>(found->buddy());
        }
        return nullptr;
    }
    Picker* picker(const QString& label) const { return control<Picker>(label); }
    Stepper* spools() const { return control<Stepper>(QStringLiteral("Nombre de bobines: ")); }
    Stepper* opened() const { return control<Stepper>(QStringLiteral("Bobines entamées: ")); }
    ColorWell* color() const { return control<ColorWell>(QStringLiteral("Couleur")); }
    /// The code in front of the colour control: the only text of its row that labels nothing.
    QLabel* colorCode() const
    {
        for (QLabel* found : color()->parentWidget()->findChildren<QLabel*>()) {
            if (!found->buddy())
                return found;
        }
        return nullptr;
    }
    QLineEdit* colorName() const { return control<QLineEdit>(QStringLiteral("Nom de la couleur")); }
    NotesField* notes() const { return control<NotesField>(QStringLiteral("Notes")); }
    QPushButton* button(const QString& text) const
    {
        for (QPushButton* found : m_sheet.findChildren<QPushButton*>()) {
            if (found->text() == text)
                return found;
        }
        return nullptr;
    }
    /// What is in front of every row, in order.
    QStringList labels() const
    {
        QStringList texts;
        for (const QLabel* found : m_sheet.findChildren<QLabel*>()) {
            if (found->buddy())
                texts << found->text();
        }
        return texts;
    }
    static QStringList choices(const Picker& picker)
    {
        QStringList names;
        for (int row = 0; row < picker.count(); ++row)
            names << picker.itemText(row);
        return names;
    }
    /// Makes the user's choice.
    static void choose(Picker& picker, const QString& name)
    {
        picker.setCurrentIndex(picker.findText(name));
        emit picker.activated(picker.currentIndex());
    }

private:
    QWidget& m_sheet;
};

} // namespace reelhouse::tests
