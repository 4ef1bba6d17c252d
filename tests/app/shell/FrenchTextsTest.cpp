#include "app/shell/FrenchTexts.h"

#include "tests/support/TestMain.h"

#include <QtPrintSupport/QPrintDialog>
#include <QtPrintSupport/QPrintPreviewDialog>
#include <QtPrintSupport/QPrinter>
#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QColorDialog>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QFileDialog>
#include <QtWidgets/QGroupBox>
#include <QtWidgets/QHeaderView>
#include <QtWidgets/QLabel>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QPlainTextEdit>
#include <QtWidgets/QTabWidget>

#include <functional>
#include <memory>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class FrenchTextsTest final : public QObject {
    Q_OBJECT

private slots:
    void standardDialogsSpeakFrench_data();
    void standardDialogsSpeakFrench();
    void theTextsGoWithTheObject();
};

namespace {

using MakeWidget = std::function<std::unique_ptr<QWidget>()>;

template <typename Dialog>
MakeWidget dialogMaker()
{
    return [] { return std::make_unique<Dialog>(); };
}

MakeWidget fileDialogMaker(QFileDialog::AcceptMode mode)
{
    return [mode] {
        auto dialog = std::make_unique<QFileDialog>();
        dialog->setOption(QFileDialog::DontUseNativeDialog);
        dialog->setAcceptMode(mode);
        return dialog;
    };
}

MakeWidget textMenuMaker(const std::function<QMenu*()>& makeMenu)
{
    return [makeMenu] { return std::unique_ptr<QWidget>(makeMenu()); };
}

/// The menu without the field that it belongs to.
QMenu* standalone(QMenu* menu)
{
    menu->setParent(nullptr);
    return menu;
}

/// Every text that a user can read in the widget, in a fixed order: what does not show yet too.
QStringList textsIn(const QWidget& root)
{
    QStringList texts;
    const auto add = [&texts](const QString& text) {
        if (!text.isEmpty())
            texts.append(text);
    };
    add(root.windowTitle());
    for (const QAction* action : root.actions())
        add(action->text());
    for (const QWidget* widget : root.findChildren<QWidget*>()) {
        add(widget->toolTip());
        if (const auto* label = qobject_cast<const QLabel*>(widget))
            add(label->text());
        else if (const auto* button = qobject_cast<const QAbstractButton*>(widget))
            add(button->text());
        else if (const auto* group = qobject_cast<const QGroupBox*>(widget))
            add(group->title());
        else if (const auto* tabs = qobject_cast<const QTabWidget*>(widget))
            for (int tab = 0; tab < tabs->count(); ++tab)
                add(tabs->tabText(tab));
        else if (const auto* list = qobject_cast<const QComboBox*>(widget))
            for (int entry = 0; entry < list->count(); ++entry)
                add(list->itemText(entry));
        for (const QAction* action : widget->actions())
            add(action->text());
    }
    return texts;
}

/// Texts that are the same in both languages.
bool isSharedByBoth(const QString& text)
{
    static const QStringList shared{
        u"OK"_s, u"Copies"_s, u"Portrait"_s, u"Options"_s, u"&Options >>"_s, u"Pages"_s};
    const bool hasLetters = std::any_of(
        text.cbegin(), text.cend(), [](QChar character) { return character.isLetter(); });
    return !hasLetters || text.startsWith(u'/') || shared.contains(text);
}

} // namespace

void FrenchTextsTest::standardDialogsSpeakFrench_data()
{
    QTest::addColumn<MakeWidget>("makeWidget");
    QTest::addColumn<QString>("expected");

    QTest::newRow("opening a file") << fileDialogMaker(QFileDialog::AcceptOpen) << u"&Ouvrir"_s;
    QTest::newRow("saving a file") << fileDialogMaker(QFileDialog::AcceptSave) << u"&Enregistrer"_s;
    QTest::newRow("colour") << dialogMaker<QColorDialog>() << u"Sélectionner une couleur"_s;
    QTest::newRow("printing") << dialogMaker<QPrintDialog>() << u"Imprimer"_s;
    QTest::newRow("preview") << dialogMaker<QPrintPreviewDialog>() << u"Aperçu avant impression"_s;
    QTest::newRow("menu of a field") << textMenuMaker([] {
        QLineEdit field(u"PLA"_s);
        return standalone(field.createStandardContextMenu());
    }) << u"&Annuler"_s;
    QTest::newRow("menu of the notes") << textMenuMaker([] {
        QPlainTextEdit notes(u"PLA"_s);
        return standalone(notes.createStandardContextMenu());
    }) << u"&Annuler"_s;
}

void FrenchTextsTest::standardDialogsSpeakFrench()
{
    QFETCH(MakeWidget, makeWidget);
    QFETCH(QString, expected);
    const QStringList english = textsIn(*makeWidget());

    const FrenchTexts texts;
    const QStringList french = textsIn(*makeWidget());

    QCOMPARE(french.size(), english.size());
    QStringList untranslated;
    for (qsizetype i = 0; i < french.size(); ++i) {
        if (french[i] == english[i] && !isSharedByBoth(french[i]))
            untranslated.append(french[i]);
    }
    QVERIFY2(untranslated.isEmpty(), qPrintable(untranslated.join(u" | "_s)));
    const bool saysIt = std::any_of(french.cbegin(), french.cend(),
        [&](const QString& text) { return text.startsWith(expected); });
    QVERIFY2(saysIt, qPrintable(french.join(u'\n')));
}

void FrenchTextsTest::theTextsGoWithTheObject()
{
    const auto cancel = [] { return QCoreApplication::translate("QPlatformTheme", "Cancel"); };
    {
        const FrenchTexts texts;
        QCOMPARE(cancel(), u"Annuler"_s);
    }
    QCOMPARE(cancel(), u"Cancel"_s);
}

REELHOUSE_TEST(FrenchTextsTest)
#include "FrenchTextsTest.moc"
