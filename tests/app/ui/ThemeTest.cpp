#include "app/ui/Theme.h"

#include "app/ui/ColorMath.h"
#include "app/ui/Palette.h"
#include "app/ui/ThemeService.h"
#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class ThemeTest final : public QObject {
    Q_OBJECT

private slots:
    void contrastIsThatOfTheGuidelines_data();
    void contrastIsThatOfTheGuidelines();
    void textIsReadableOnEveryGround_data();
    void textIsReadableOnEveryGround();
    void graphicsStandOut_data();
    void graphicsStandOut();
    void highContrastStrengthensLinesAndText_data();
    void highContrastStrengthensLinesAndText();
    void thePaletteCarriesTheTokens_data();
    void thePaletteCarriesTheTokens();
    void theDesktopDecidesElseTheFallback_data();
    void theDesktopDecidesElseTheFallback();
};

namespace {

struct Pair {
    const char* name;
    ColorRole text;
    ColorRole ground;
    bool isHovered = false; ///< The wash lies over the ground.
};

constexpr Pair textPairs[] = {
    {"primary on window", &Theme::textPrimary, &Theme::window},
    {"primary on canvas", &Theme::textPrimary, &Theme::canvas},
    {"primary on list", &Theme::textPrimary, &Theme::list, true},
    {"primary on surface", &Theme::textPrimary, &Theme::surface, true},
    {"primary on sunken", &Theme::textPrimary, &Theme::sunken},
    {"primary on menu", &Theme::textPrimary, &Theme::menu},
    {"primary on selection", &Theme::textPrimary, &Theme::selection},
    {"primary on sidebar selection", &Theme::textPrimary, &Theme::selectionSide},
    {"primary on selection without focus", &Theme::textPrimary, &Theme::track},
    {"secondary on window", &Theme::textSecondary, &Theme::window, true},
    {"secondary on canvas", &Theme::textSecondary, &Theme::canvas},
    {"secondary on list", &Theme::textSecondary, &Theme::list, true},
    {"secondary on surface", &Theme::textSecondary, &Theme::surface, true},
    {"secondary on sunken", &Theme::textSecondary, &Theme::sunken},
    {"secondary on menu", &Theme::textSecondary, &Theme::menu},
    {"secondary on sidebar selection", &Theme::textSecondary, &Theme::selectionSide},
    {"secondary on selection", &Theme::textSecondary, &Theme::selection},
    {"secondary on selection without focus", &Theme::textSecondary, &Theme::track},
    {"tertiary on window", &Theme::textTertiary, &Theme::window},
    {"tertiary on canvas", &Theme::textTertiary, &Theme::canvas},
    {"tertiary on list", &Theme::textTertiary, &Theme::list, true},
    {"tertiary on surface", &Theme::textTertiary, &Theme::surface, true},
    {"tertiary on sunken", &Theme::textTertiary, &Theme::sunken},
    {"tertiary on menu", &Theme::textTertiary, &Theme::menu},
    {"link on canvas", &Theme::accentText, &Theme::canvas, true},
    {"link on surface", &Theme::accentText, &Theme::surface},
    {"link held down", &Theme::accentText, &Theme::sunken},
    {"link on window", &Theme::accentText, &Theme::window},
    {"label of the default button", &Theme::onAccent, &Theme::accentButton},
    {"label of the default button under the pointer", &Theme::onAccent, &Theme::accentButtonHover},
    {"label of the destructive button", &Theme::onAccent, &Theme::redFill},
    {"red on canvas", &Theme::red, &Theme::canvas},
    {"red on surface", &Theme::red, &Theme::surface, true},
    {"red on a button held down", &Theme::red, &Theme::sunken},
    {"red on menu", &Theme::red, &Theme::menu},
    {"red on menu selection", &Theme::red, &Theme::selection},
    {"red on its soft ground", &Theme::red, &Theme::redSoft},
    {"orange on list", &Theme::orange, &Theme::list, true},
    {"orange on surface", &Theme::orange, &Theme::surface},
    {"orange on canvas", &Theme::orange, &Theme::canvas},
    {"orange on selection without focus", &Theme::orange, &Theme::track},
    {"orange on selection", &Theme::orange, &Theme::selection},
    {"orange on its soft ground", &Theme::orange, &Theme::orangeSoft},
    {"link on a notice", &Theme::accentText, &Theme::orangeSoft},
    {"green on canvas", &Theme::green, &Theme::canvas},
    {"green on its soft ground", &Theme::green, &Theme::greenSoft},
};

/// Borders of buttons are not in it, nor the bars of places, whose colours are given: what they
/// mark is told by the text on or beside them. Neither is what cannot be used.
constexpr Pair graphicPairs[] = {
    {"icon on sidebar selection", &Theme::accentText, &Theme::selectionSide},
    {"focus ring on canvas", &Theme::accent, &Theme::canvas},
    {"focus ring on list", &Theme::accent, &Theme::list},
    {"focus ring on window", &Theme::accent, &Theme::window},
    {"focus ring on surface", &Theme::accent, &Theme::surface},
    {"focus ring on sunken", &Theme::accent, &Theme::sunken},
    {"focus ring on selection", &Theme::accent, &Theme::selection},
    {"focus ring on selection without focus", &Theme::accent, &Theme::track},
    {"focus ring on sidebar selection", &Theme::accentText, &Theme::selectionSide},
    {"focus ring of a refused input", &Theme::red, &Theme::canvas},
    {"chosen segment", &Theme::chosenIcon, &Theme::raised},
    {"tick in its box", &Theme::onAccent, &Theme::accentButton},
    {"scroll bar on window", &Theme::scroller, &Theme::window},
    {"scroll bar on canvas", &Theme::scroller, &Theme::canvas},
    {"scroll bar on list", &Theme::scroller, &Theme::list},
    {"scroll bar on surface", &Theme::scroller, &Theme::surface},
    {"scroll bar on menu", &Theme::scroller, &Theme::menu},
    {"warning on window", &Theme::orangeGraphic, &Theme::window},
    {"warning on canvas", &Theme::orangeGraphic, &Theme::canvas},
    {"bar of a type", &Theme::typeBar, &Theme::surface},
    {"bar of a brand", &Theme::brandBar, &Theme::surface},
    {"icon of an export screen, at its start", &Theme::gradientStart, &Theme::canvas},
    {"icon of an export screen, at its end", &Theme::gradientEnd, &Theme::canvas},
    {"border of an input on surface", &Theme::control, &Theme::surface},
    {"border of an input on canvas", &Theme::control, &Theme::canvas},
    {"track of a toggle on surface", &Theme::off, &Theme::surface},
};

void addPairs(const Pair* begin, const Pair* end)
{
    QTest::addColumn<QColor>("mark");
    QTest::addColumn<QColor>("ground");
    const auto add = [](const char* themeName, const Theme& theme, const Pair& pair) {
        const QColor ground = theme.*pair.ground;
        QTest::addRow("%s, %s", pair.name, themeName) << theme.*pair.text << ground;
        if (pair.isHovered)
            QTest::addRow("%s, hovered, %s", pair.name, themeName)
                << theme.*pair.text << blended(theme.hover, ground);
    };
    for (const Pair* pair = begin; pair != end; ++pair) {
        add("light", lightTheme(), *pair);
        add("dark", darkTheme(), *pair);
        add("light with high contrast", withHighContrast(lightTheme()), *pair);
        add("dark with high contrast", withHighContrast(darkTheme()), *pair);
    }
}

} // namespace

void ThemeTest::contrastIsThatOfTheGuidelines_data()
{
    QTest::addColumn<QColor>("one");
    QTest::addColumn<QColor>("other");
    QTest::addColumn<double>("ratio");

    QTest::newRow("black and white") << QColor(Qt::black) << QColor(Qt::white) << 21.0;
    QTest::newRow("white and black") << QColor(Qt::white) << QColor(Qt::black) << 21.0;
    QTest::newRow("a colour and itself") << QColor(0x667EEA) << QColor(0x667EEA) << 1.0;
    QTest::newRow("middle grey on white") << QColor(0x767676) << QColor(Qt::white) << 4.54;
    QTest::newRow("red on white") << QColor(0xFF0000) << QColor(Qt::white) << 4.0;
}

void ThemeTest::contrastIsThatOfTheGuidelines()
{
    QFETCH(QColor, one);
    QFETCH(QColor, other);
    QFETCH(double, ratio);

    QVERIFY(qAbs(contrastRatio(one, other) - ratio) < 0.005);
}

void ThemeTest::textIsReadableOnEveryGround_data()
{
    addPairs(std::begin(textPairs), std::end(textPairs));
    for (const Theme& theme : {lightTheme(), darkTheme()}) {
        const char* themeName = theme.isDark ? "dark" : "light";
        const auto add = [themeName](const char* name, const CapsuleTint& tint) {
            QTest::addRow("%s capsule, %s", name, themeName) << tint.text << tint.ground;
        };
        add("type", theme.typeTint);
        add("brand", theme.brandTint);
        add("range", theme.rangeTint);
        add("location", theme.locationTint);
        add("count", theme.countTint);
    }
}

void ThemeTest::textIsReadableOnEveryGround()
{
    QFETCH(QColor, mark);
    QFETCH(QColor, ground);

    const qreal contrast = contrastRatio(mark, ground);
    QVERIFY2(contrast >= 4.5, qPrintable(QString::number(contrast)));
}

void ThemeTest::graphicsStandOut_data()
{
    addPairs(std::begin(graphicPairs), std::end(graphicPairs));
}

void ThemeTest::graphicsStandOut()
{
    QFETCH(QColor, mark);
    QFETCH(QColor, ground);

    const qreal contrast = contrastRatio(mark, ground);
    QVERIFY2(contrast >= 3, qPrintable(QString::number(contrast)));
}

void ThemeTest::highContrastStrengthensLinesAndText_data()
{
    QTest::addColumn<bool>("isDark");

    QTest::newRow("light") << false;
    QTest::newRow("dark") << true;
}

void ThemeTest::highContrastStrengthensLinesAndText()
{
    QFETCH(bool, isDark);
    const Theme plain = isDark ? darkTheme() : lightTheme();

    const Theme strong = withHighContrast(plain);

    QCOMPARE(strong.hairline, plain.textSecondary);
    QCOMPARE(strong.line, plain.textSecondary);
    QCOMPARE(strong.control, plain.textSecondary);
    QCOMPARE(strong.textSecondary, plain.textPrimary);
    QCOMPARE(strong.textTertiary, plain.textPrimary);
    QCOMPARE(strong.textPrimary, plain.textPrimary);
    QCOMPARE(strong.canvas, plain.canvas);
}

void ThemeTest::thePaletteCarriesTheTokens_data()
{
    QTest::addColumn<QPalette::ColorRole>("role");
    QTest::addColumn<QColor>("light");
    QTest::addColumn<QColor>("dark");

    const auto row = [](const char* name, QPalette::ColorRole role, QRgb light, QRgb dark) {
        QTest::newRow(name) << role << QColor(light) << QColor(dark);
    };
    row("Window", QPalette::Window, 0xFAFAFB, 0x212226);
    row("Base", QPalette::Base, 0xFFFFFF, 0x2A2B30);
    row("AlternateBase", QPalette::AlternateBase, 0xFFFFFF, 0x212226);
    row("Button", QPalette::Button, 0xFFFFFF, 0x2A2B30);
    row("Mid", QPalette::Mid, 0xE2E4E9, 0x35373D);
    row("Highlight", QPalette::Highlight, 0xE6EAFC, 0x333A5C);
    row("HighlightedText", QPalette::HighlightedText, 0x1B1D22, 0xECEDF1);
    row("WindowText", QPalette::WindowText, 0x1B1D22, 0xECEDF1);
    row("Text", QPalette::Text, 0x1B1D22, 0xECEDF1);
    row("PlaceholderText", QPalette::PlaceholderText, 0x626875, 0x999FAC);
    row("Link", QPalette::Link, 0x4A5CCB, 0xA9B6FA);
    row("ground: window", roleOf(Ground::Window), 0xF3F4F6, 0x1C1D21);
    row("ground: sunken", roleOf(Ground::Sunken), 0xECEEF1, 0x18191C);
    row("tone: secondary", roleOf(TextTone::Secondary), 0x545965, 0xAEB3BF);
    row("tone: tertiary", roleOf(TextTone::Tertiary), 0x626875, 0x999FAC);
    row("tone: red", roleOf(TextTone::Red), 0xC4242B, 0xFF8C86);
    row("tone: orange", roleOf(TextTone::Orange), 0x9A5200, 0xFFB066);
    row("tone: green", roleOf(TextTone::Green), 0x17734A, 0x6ED3A1);
}

void ThemeTest::thePaletteCarriesTheTokens()
{
    QFETCH(QPalette::ColorRole, role);
    QFETCH(QColor, light);
    QFETCH(QColor, dark);

    QCOMPARE(paletteOf(lightTheme()).color(QPalette::Active, role), light);
    QCOMPARE(paletteOf(lightTheme()).color(QPalette::Inactive, role), light);
    QCOMPARE(paletteOf(darkTheme()).color(QPalette::Active, role), dark);
    QCOMPARE(paletteOf(darkTheme()).color(QPalette::Inactive, role), dark);
}

void ThemeTest::theDesktopDecidesElseTheFallback_data()
{
    QTest::addColumn<int>("preference");
    QTest::addColumn<bool>("fallsBackToDark");
    QTest::addColumn<bool>("isDark");

    QTest::newRow("dark asked, light platform") << 1 << false << true;
    QTest::newRow("light asked, dark platform") << 2 << true << false;
    QTest::newRow("nothing asked, dark platform") << 0 << true << true;
    QTest::newRow("nothing asked, light platform") << 0 << false << false;
}

void ThemeTest::theDesktopDecidesElseTheFallback()
{
    QFETCH(int, preference);
    QFETCH(bool, fallsBackToDark);
    QFETCH(bool, isDark);

    Appearance appearance;
    if (preference != 0)
        appearance.colorScheme = preference == 1 ? ColorScheme::Dark : ColorScheme::Light;
    const ColorScheme fallback = fallsBackToDark ? ColorScheme::Dark : ColorScheme::Light;

    QCOMPARE(ThemeService::themeFor(appearance, fallback), isDark ? darkTheme() : lightTheme());
    appearance.wantsHighContrast = true;
    QCOMPARE(ThemeService::themeFor(appearance, fallback),
        withHighContrast(isDark ? darkTheme() : lightTheme()));
}

REELHOUSE_TEST(ThemeTest)

#include "ThemeTest.moc"
