#include "app/ui/CapsuleButton.h"

#include "app/ui/CapsuleMenu.h"
#include "tests/app/ui/AccessibleFacts.h"
#include "tests/support/TestMain.h"

#include <QtCore/QTimer>
#include <QtGui/QScreen>
#include <QtTest/QTest>
#include <QtWidgets/QMenu>

using namespace reelhouse;
using namespace reelhouse::tests;
using namespace Qt::StringLiterals;

class CapsuleButtonTest final : public QObject {
    Q_OBJECT

private slots:
    void anUnsetCapsuleSpeaksItsField();
    void aSetCapsuleSpeaksItsValueAndWearsItsTint();
    void anEmptyValueUnsetsIt();
    void aLongValueIsCutAndStandsInTheTooltip();
    void markupInAValueIsText();
    void aShortValueNeedsNoTooltip();
    void theFieldIsNeverCut();
    void aNameWithAnAmpersandIsNoShortcut();
    void aBareCapsuleIsNamedByItsTooltip();
    void spaceOpensTheMenu();
    void theMenuStandsALittleOff_data();
    void theMenuStandsALittleOff();
};

Q_DECLARE_METATYPE(reelhouse::CapsuleMenu::Alignment)

namespace {

const auto longPlace = u"Boîte étanche du sous-sol, rayon de gauche"_s;

class TypeCapsule final : public CapsuleButton {
public:
    TypeCapsule()
        : CapsuleButton(u"cube.fill"_s, u"Type"_s, u"Tous"_s, &Theme::typeTint)
    {
    }
};

QColor groundOf(CapsuleButton& capsule)
{
    capsule.resize(capsule.sizeHint());
    return capsule.grab().toImage().pixelColor(capsule.width() / 2, 2);
}

} // namespace

void CapsuleButtonTest::anUnsetCapsuleSpeaksItsField()
{
    TypeCapsule capsule;

    QCOMPARE(spokenName(&capsule), u"Type"_s);
    QCOMPARE(spokenDescription(&capsule), u"Tous"_s);
    QCOMPARE(groundOf(capsule), currentTheme().surface);
}

void CapsuleButtonTest::aSetCapsuleSpeaksItsValueAndWearsItsTint()
{
    TypeCapsule capsule;

    capsule.setValue(u"PLA"_s);

    QCOMPARE(spokenName(&capsule), u"Type"_s);
    QCOMPARE(spokenDescription(&capsule), u"PLA"_s);
    QCOMPARE(groundOf(capsule), currentTheme().typeTint.ground);
}

void CapsuleButtonTest::anEmptyValueUnsetsIt()
{
    TypeCapsule capsule;
    capsule.setValue(u"PLA"_s);

    capsule.setValue(QString());

    QCOMPARE(spokenDescription(&capsule), u"Tous"_s);
    QCOMPARE(groundOf(capsule), currentTheme().surface);
}

void CapsuleButtonTest::aLongValueIsCutAndStandsInTheTooltip()
{
    TypeCapsule capsule;
    const int bare = capsule.sizeHint().width();

    capsule.setValue(longPlace);

    QVERIFY(capsule.sizeHint().width() <= bare + 112);
    QCOMPARE(capsule.toolTip(), longPlace);
    QCOMPARE(spokenDescription(&capsule), longPlace);
}

void CapsuleButtonTest::markupInAValueIsText()
{
    TypeCapsule capsule;

    capsule.setValue(u"<i>"_s + longPlace);

    QCOMPARE(capsule.toolTip(), u"<p>&lt;i&gt;"_s + longPlace + u"</p>"_s);
}

void CapsuleButtonTest::aShortValueNeedsNoTooltip()
{
    TypeCapsule capsule;
    capsule.setValue(longPlace);

    capsule.setValue(u"PLA"_s);

    QVERIFY(capsule.toolTip().isEmpty());
}

void CapsuleButtonTest::theFieldIsNeverCut()
{
    const CapsuleButton capsule(u"map.fill"_s, longPlace, u"Tous"_s, &Theme::locationTint);

    QVERIFY(capsule.sizeHint().width() > QFontMetrics(capsule.font()).horizontalAdvance(longPlace));
    QCOMPARE(capsule.minimumSizeHint(), capsule.sizeHint());
}

void CapsuleButtonTest::aNameWithAnAmpersandIsNoShortcut()
{
    TypeCapsule capsule;

    capsule.setValue(u"A&B"_s);

    QVERIFY(capsule.shortcut().isEmpty());
    QCOMPARE(spokenDescription(&capsule), u"A&B"_s);
}

void CapsuleButtonTest::aBareCapsuleIsNamedByItsTooltip()
{
    CapsuleButton star(u"star"_s, u"Filtres favoris"_s);

    QCOMPARE(star.toolTip(), u"Filtres favoris"_s);
    QCOMPARE(spokenName(&star), u"Filtres favoris"_s);
    QCOMPARE(groundOf(star), currentTheme().surface);
    star.setSymbol(u"star.fill"_s, true);
    QCOMPARE(groundOf(star), currentTheme().selectionSide);
}

void CapsuleButtonTest::spaceOpensTheMenu()
{
    TypeCapsule capsule;
    auto* menu = new QMenu(&capsule);
    menu->addAction(u"Tous"_s);
    capsule.setMenu(menu);
    capsule.show();
    QVERIFY(QTest::qWaitForWindowActive(&capsule));
    bool wasOpen = false;
    connect(menu, &QMenu::aboutToShow, menu, [&wasOpen, menu] {
        wasOpen = true;
        QMetaObject::invokeMethod(menu, &QMenu::close, Qt::QueuedConnection);
    });

    QTest::keyClick(&capsule, Qt::Key_Space);

    QVERIFY(wasOpen);
    QCOMPARE(spokenRole(&capsule), QAccessible::ButtonMenu);
}

void CapsuleButtonTest::theMenuStandsALittleOff_data()
{
    QTest::addColumn<CapsuleMenu::Alignment>("alignment");
    QTest::addColumn<bool>("isAtTheBottom");

    QTest::newRow("under its left end") << CapsuleMenu::Alignment::Left << false;
    QTest::newRow("under its right end") << CapsuleMenu::Alignment::Right << false;
    QTest::newRow("above it") << CapsuleMenu::Alignment::Left << true;
}

void CapsuleButtonTest::theMenuStandsALittleOff()
{
    QFETCH(CapsuleMenu::Alignment, alignment);
    QFETCH(bool, isAtTheBottom);
    TypeCapsule capsule;
    auto* menu = new CapsuleMenu(&capsule, alignment);
    menu->addAction(u"Enregistrer le filtre actuel…"_s);
    capsule.setMenu(menu);
    capsule.resize(capsule.sizeHint());
    capsule.move(300, isAtTheBottom ? capsule.screen()->geometry().bottom() - 40 : 100);
    capsule.show();
    QVERIFY(QTest::qWaitForWindowActive(&capsule));
    QRect place;
    QTimer::singleShot(0, menu, [menu, &place] {
        place = menu->geometry();
        menu->close();
    });

    QTest::keyClick(&capsule, Qt::Key_Space);

    const QRect button(capsule.mapToGlobal(QPoint()), capsule.size());
    QVERIFY(place.width() > button.width());
    if (isAtTheBottom)
        QCOMPARE(place.bottom() + 1 + 5, button.top());
    else
        QCOMPARE(place.top(), button.bottom() + 1 + 5);
    if (alignment == CapsuleMenu::Alignment::Left)
        QCOMPARE(place.left(), button.left());
    else
        QCOMPARE(place.right(), button.right());
}

REELHOUSE_TEST(CapsuleButtonTest)

#include "CapsuleButtonTest.moc"
