#include "app/ui/CapsuleButton.h"

#include "tests/app/ui/AccessibleFacts.h"
#include "tests/support/TestMain.h"

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
};

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

REELHOUSE_TEST(CapsuleButtonTest)

#include "CapsuleButtonTest.moc"
