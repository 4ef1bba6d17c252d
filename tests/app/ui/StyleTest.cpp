#include "app/ui/ButtonLook.h"
#include "app/ui/FocusRing.h"
#include "app/ui/FormGroup.h"
#include "app/ui/InputState.h"
#include "app/ui/SpoolwrightStyle.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"
#include "app/ui/ThemeService.h"
#include "tests/support/TestMain.h"

#include <QtGui/QPainter>
#include <QtTest/QTest>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLineEdit>
#include <QtWidgets/QMenu>
#include <QtWidgets/QMenuBar>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QScrollBar>
#include <QtWidgets/QSplitter>
#include <QtWidgets/QStyleOption>
#include <QtWidgets/QTableView>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class StyleTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void cleanup();
    void aSingleClickActivatesNothing();
    void aSplitterIsOneLine();
    void theDeletingEntryIsRed_data();
    void theDeletingEntryIsRed();
    void onlyAMenuTintsIt();
    void aBoxThatIsTypedIntoShowsItsTextOnce();
    void lettersAreUnderlinedInTheMenusOfABar_data();
    void lettersAreUnderlinedInTheMenusOfABar();
    void aCheckedEntryIsTicked();
    void buttonsAreAtLeast32High_data();
    void buttonsAreAtLeast32High();
    void controlsInFormsAreSmaller();
    void aButtonNeverCutsItsText();
    void theFocusRingIsForTheKeyboard_data();
    void theFocusRingIsForTheKeyboard();
    void aPressOfTheMouseTakesTheRingAway();
    void looksHaveTheirGrounds_data();
    void looksHaveTheirGrounds();
    void aDisabledButtonIsFaded();
    void aFieldShowsItsState_data();
    void aFieldShowsItsState();
    void aTickedBoxIsFilled();
    void theFocusRingOfABoxSurroundsItsLabel();
    void theSliderOfAScrollBarFollowsItsValue_data();
    void theSliderOfAScrollBarFollowsItsValue();
    void textSizesFollowTheApplicationFont_data();
    void textSizesFollowTheApplicationFont();

private:
    std::unique_ptr<ThemeService> m_themes;
};

namespace {

const Theme& theme()
{
    return currentTheme();
}

QImage painted(QWidget& widget)
{
    widget.resize(widget.sizeHint());
    return widget.grab().toImage();
}

bool holds(const QImage& image, const QColor& color)
{
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixelColor(x, y) == color)
                return true;
    return false;
}

/// For thin strokes, which hardly cover one pixel wholly.
bool almostHolds(const QImage& image, const QColor& color)
{
    constexpr int tolerance = 48;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            const QColor pixel = image.pixelColor(x, y);
            if (qAbs(pixel.red() - color.red()) < tolerance
                && qAbs(pixel.green() - color.green()) < tolerance
                && qAbs(pixel.blue() - color.blue()) < tolerance)
                return true;
        }
    }
    return false;
}

/// A push button as the style draws it in some states.
QImage drawnButton(ButtonLook look, QStyle::State states)
{
    QPushButton button;
    setButtonLook(&button, look);
    QStyleOptionButton option;
    option.rect = QRect(0, 0, 80, 32);
    option.state = states;
    QImage image(80, 32, QImage::Format_RGB32);
    image.fill(theme().canvas);
    QPainter painter(&image);
    QApplication::style()->drawControl(QStyle::CE_PushButton, &option, &painter, &button);
    return image;
}

} // namespace

void StyleTest::initTestCase()
{
    m_themes = std::make_unique<ThemeService>(QDBusConnection(u"none"_s));
}

void StyleTest::cleanup()
{
    QApplication::setFont(QFont());
}

void StyleTest::aSingleClickActivatesNothing()
{
    const QTableView table;

    QCOMPARE(QApplication::style()->styleHint(
                 QStyle::SH_ItemView_ActivateItemOnSingleClick, nullptr, &table),
        0);
}

void StyleTest::aSplitterIsOneLine()
{
    const QSplitter splitter;

    QCOMPARE(splitter.handleWidth(), 1);
}

void StyleTest::theDeletingEntryIsRed_data()
{
    QTest::addColumn<QString>("title");
    QTest::addColumn<bool>("hasShortcut");
    QTest::addColumn<bool>("isRed");

    QTest::newRow("exactly") << u"Supprimer"_s << false << true;
    QTest::newRow("with its key") << u"Supprimer"_s << true << true;
    QTest::newRow("with a letter that chooses it") << u"S&upprimer"_s << false << true;
    QTest::newRow("with a character & of its own") << u"&&Supprimer"_s << false << false;
    QTest::newRow("longer") << u"Supprimer une bobine entamée"_s << false << false;
    QTest::newRow("lower case") << u"supprimer"_s << false << false;
    QTest::newRow("with a space") << u"Supprimer "_s << false << false;
    QTest::newRow("another") << u"Dupliquer le filament"_s << true << false;
}

void StyleTest::theDeletingEntryIsRed()
{
    QFETCH(QString, title);
    QFETCH(bool, hasShortcut);
    QFETCH(bool, isRed);
    QMenu menu;
    QAction* action = menu.addAction(symbolIcon(u"circle.fill"_s), title);
    if (hasShortcut)
        action->setShortcut(Qt::Key_Delete);

    const QImage image = painted(menu);

    const QRect entry = menu.actionGeometry(action);
    const QImage icon = image.copy(entry.left(), entry.top(), 34, entry.height());
    const QImage text = image.copy(entry.adjusted(34, 0, 0, 0));
    QCOMPARE(holds(icon, theme().red), isRed);
    QCOMPARE(holds(icon, theme().textSecondary), !isRed);
    QCOMPARE(holds(text, theme().red), isRed);
    QCOMPARE(holds(text, theme().textPrimary), !isRed);
}

void StyleTest::aBoxThatIsTypedIntoShowsItsTextOnce()
{
    QComboBox combo;
    combo.addItem(u"38,8 %"_s);
    QVERIFY(almostHolds(painted(combo), theme().textPrimary));

    combo.setEditable(true);
    combo.lineEdit()->hide();

    QVERIFY(!almostHolds(painted(combo), theme().textPrimary));
}

void StyleTest::onlyAMenuTintsIt()
{
    QComboBox combo;
    combo.addItem(u"Supprimer"_s);
    QPushButton button(u"Supprimer"_s);

    QVERIFY(!holds(painted(combo), theme().red));
    QVERIFY(!holds(painted(button), theme().red));
}

void StyleTest::lettersAreUnderlinedInTheMenusOfABar_data()
{
    QTest::addColumn<bool>("isInBar");

    QTest::newRow("in a menu bar") << true;
    QTest::newRow("at the pointer") << false;
}

void StyleTest::lettersAreUnderlinedInTheMenusOfABar()
{
    QFETCH(bool, isInBar);
    QMenuBar bar;
    QMenu menu(isInBar ? &bar : nullptr);
    QAction* entry = menu.addAction(u"Liste"_s);
    const QImage plain = painted(menu);

    entry->setText(u"&Liste"_s);

    QCOMPARE(painted(menu) != plain, isInBar);
}

void StyleTest::aCheckedEntryIsTicked()
{
    QMenu menu;
    QAction* action = menu.addAction(u"PLA"_s);
    action->setCheckable(true);
    const QRect column(0, 0, 34, 40);

    const QImage unticked = painted(menu).copy(column);
    action->setChecked(true);
    const QImage ticked = painted(menu).copy(column);

    QVERIFY(!almostHolds(unticked, theme().textPrimary));
    QVERIFY(almostHolds(ticked, theme().textPrimary));
}

void StyleTest::buttonsAreAtLeast32High_data()
{
    QTest::addColumn<int>("points");

    QTest::newRow("usual text") << 10;
    QTest::newRow("text of double size") << 20;
    QTest::newRow("text of triple size") << 30;
}

void StyleTest::buttonsAreAtLeast32High()
{
    QFETCH(int, points);
    QFont font = QApplication::font();
    font.setPointSize(points);
    QPushButton button(u"Ajouter"_s);
    button.setFont(font);

    const int textHeight = QFontMetrics(font).height();
    QCOMPARE(button.sizeHint().height(), textHeight + 12 > 32 ? textHeight + 12 : 32);
}

void StyleTest::controlsInFormsAreSmaller()
{
    QFont font = QApplication::font();
    font.setPointSizeF(6); // Its text needs less than either height.
    const auto heightOf = [&font](QWidget& control) {
        control.setFont(font);
        return control.sizeHint().height();
    };
    QPushButton button(u"Ajouter"_s);
    QPushButton small(u"Purger maintenant"_s);
    setSmallButton(&small);
    QLineEdit field;
    FormGroup form;
    auto* fieldInForm = new QLineEdit;
    form.addRow(u"Nom de la couleur"_s, fieldInForm);

    QCOMPARE(heightOf(button), 32);
    QCOMPARE(heightOf(small), 28);
    QCOMPARE(heightOf(field), 32);
    QCOMPARE(heightOf(*fieldInForm), 28);
}

void StyleTest::aButtonNeverCutsItsText()
{
    QPushButton button(symbolIcon(u"plus"_s), u"Ouvrir le dossier des données"_s);
    QFont heavy = button.font();
    heavy.setWeight(QFont::DemiBold);
    setButtonLook(&button, ButtonLook::Default);

    QVERIFY(button.minimumSizeHint().width()
        >= QFontMetrics(heavy).horizontalAdvance(button.text()) + 14 + 8 + 2 * 14);
}

void StyleTest::theFocusRingIsForTheKeyboard_data()
{
    QTest::addColumn<QStyle::State>("states");
    QTest::addColumn<bool>("hasRing");

    const QStyle::State focus = QStyle::State_HasFocus;
    const QStyle::State keyboard = QStyle::State_KeyboardFocusChange;
    const QStyle::State enabled = QStyle::State_Enabled;
    QTest::newRow("by the keyboard") << (enabled | focus | keyboard) << true;
    QTest::newRow("by the mouse") << (enabled | focus) << false;
    QTest::newRow("without focus") << (enabled | keyboard) << false;
    QTest::newRow("disabled") << (focus | keyboard) << false;
}

void StyleTest::theFocusRingIsForTheKeyboard()
{
    QFETCH(QStyle::State, states);
    QFETCH(bool, hasRing);

    const QImage image = drawnButton(ButtonLook::Normal, states);

    QCOMPARE(image.pixelColor(40, 0) == theme().accent, hasRing);
    QCOMPARE(image.pixelColor(40, 1) == theme().accent, hasRing);
    if (hasRing) {
        QCOMPARE(image.pixelColor(40, 2), theme().canvas);
        QCOMPARE(image.pixelColor(40, 3), theme().canvas);
        QCOMPARE(image.pixelColor(40, 4), theme().line);
    }
}

void StyleTest::aPressOfTheMouseTakesTheRingAway()
{
    const FocusRingWatch watch;
    QWidget window;
    auto* row = new QHBoxLayout(&window);
    auto* first = new QPushButton(u"Annuler"_s);
    auto* second = new QPushButton(u"Ajouter"_s);
    row->addWidget(first);
    row->addWidget(second);
    window.show();
    QTRY_COMPARE(QApplication::activeWindow(), &window);
    const auto showsRing = [](const QPushButton& button) {
        QStyleOptionButton option;
        option.initFrom(&button);
        return showsFocusRing(option);
    };
    first->setFocus();

    QTest::keyClick(first, Qt::Key_Tab);
    QVERIFY(showsRing(*second));
    QTest::mouseClick(first, Qt::LeftButton);
    QVERIFY(first->hasFocus());
    QVERIFY(!showsRing(*first));
    QTest::keyClick(first, Qt::Key_Tab);
    QVERIFY(showsRing(*second));
}

void StyleTest::looksHaveTheirGrounds_data()
{
    QTest::addColumn<int>("look");
    QTest::addColumn<QColor>("rest");
    QTest::addColumn<QColor>("hovered");
    QTest::addColumn<QColor>("pressed");

    const auto row = [](const char* name, ButtonLook look, QRgb rest, QRgb hovered, QRgb pressed) {
        QTest::newRow(name) << int(look) << QColor(rest) << QColor(hovered) << QColor(pressed);
    };
    row("normal", ButtonLook::Normal, 0xFFFFFF, 0xF4F5F5, 0xECEEF1);
    row("default", ButtonLook::Default, 0x4F62D6, 0x4456C6, 0x4454B8);
    row("destructive", ButtonLook::Destructive, 0xFFFFFF, 0xF4F5F5, 0xECEEF1);
    row("destructive, filled", ButtonLook::DestructiveFilled, 0xC4242B, 0xB62128, 0xA91F25);
    row("ghost", ButtonLook::Ghost, 0xFAFAFB, 0xF0F0F2, 0xECEEF1);
    row("link", ButtonLook::Link, 0xFAFAFB, 0xF0F0F2, 0xECEEF1);
}

void StyleTest::looksHaveTheirGrounds()
{
    QFETCH(int, look);
    QFETCH(QColor, rest);
    QFETCH(QColor, hovered);
    QFETCH(QColor, pressed);
    const auto ground = [look](QStyle::State states) {
        return drawnButton(static_cast<ButtonLook>(look), QStyle::State_Enabled | states)
            .pixelColor(40, 16);
    };
    // Blending rounds, so that a channel may be off by one.
    const auto isClose = [](const QColor& one, const QColor& other) {
        return qAbs(one.red() - other.red()) <= 1 && qAbs(one.green() - other.green()) <= 1
            && qAbs(one.blue() - other.blue()) <= 1;
    };

    QCOMPARE(ground(QStyle::State_None), rest);
    QVERIFY2(isClose(ground(QStyle::State_MouseOver), hovered),
        qPrintable(ground(QStyle::State_MouseOver).name()));
    QVERIFY2(isClose(ground(QStyle::State_Sunken), pressed),
        qPrintable(ground(QStyle::State_Sunken).name()));
}

void StyleTest::aDisabledButtonIsFaded()
{
    const QColor ground
        = drawnButton(ButtonLook::Default, QStyle::State_MouseOver).pixelColor(40, 16);

    // 45 % of #4F62D6 over #FAFAFB, without the hovered colour.
    QVERIFY2(qAbs(ground.red() - 173) <= 1 && qAbs(ground.green() - 182) <= 1
            && qAbs(ground.blue() - 234) <= 1,
        qPrintable(ground.name()));
}

void StyleTest::aFieldShowsItsState_data()
{
    QTest::addColumn<int>("shape");
    QTest::addColumn<bool>("isRefused");
    QTest::addColumn<bool>("hasFocus");
    QTest::addColumn<QColor>("border");
    QTest::addColumn<QColor>("ground");

    const int field = int(InputShape::Field);
    const int search = int(InputShape::Search);
    const QColor white(0xFFFFFF);
    QTest::newRow("at rest") << field << false << false << QColor(0x8B919E) << white;
    QTest::newRow("focused") << field << false << true << QColor(0x667EEA) << white;
    QTest::newRow("refused") << field << true << false << QColor(0xC4242B) << white;
    QTest::newRow("refused and focused") << field << true << true << QColor(0xC4242B) << white;
    QTest::newRow("search at rest")
        << search << false << false << QColor(0xECEEF1) << QColor(0xECEEF1);
    QTest::newRow("search focused") << search << false << true << QColor(0x667EEA) << white;
}

void StyleTest::aFieldShowsItsState()
{
    QFETCH(int, shape);
    QFETCH(bool, isRefused);
    QFETCH(bool, hasFocus);
    QFETCH(QColor, border);
    QFETCH(QColor, ground);
    QLineEdit field;
    setInputState(&field, {.shape = static_cast<InputShape>(shape), .isRefused = isRefused});
    QStyleOptionFrame option;
    option.rect = QRect(0, 0, 80, 30);
    option.lineWidth = 1;
    option.state = QStyle::State_Enabled;
    option.state.setFlag(QStyle::State_HasFocus, hasFocus);
    QImage image(80, 30, QImage::Format_RGB32);
    image.fill(theme().canvas);
    QPainter painter(&image);

    QApplication::style()->drawPrimitive(QStyle::PE_PanelLineEdit, &option, &painter, &field);

    QCOMPARE(image.pixelColor(40, 0), border);
    QCOMPARE(image.pixelColor(40, 15), ground);
    QCOMPARE(image.pixelColor(40, 1) == ground, !hasFocus); // the halo
}

void StyleTest::aTickedBoxIsFilled()
{
    QCheckBox box(u"Type"_s);
    const QImage unticked = painted(box);
    box.setChecked(true);
    const QImage ticked = painted(box);

    QVERIFY(!holds(unticked, theme().accentButton));
    QVERIFY(holds(unticked, theme().control));
    QVERIFY(holds(ticked, theme().accentButton));
    QVERIFY(almostHolds(ticked.copy(4, 4, 18, 18), theme().onAccent));
}

void StyleTest::theFocusRingOfABoxSurroundsItsLabel()
{
    QStyleOptionButton option;
    option.rect = QRect(0, 0, 120, 28);
    option.text = u"Type"_s;
    option.state
        = QStyle::State_Enabled | QStyle::State_HasFocus | QStyle::State_KeyboardFocusChange;
    for (const QStyle::ControlElement element : {QStyle::CE_CheckBox, QStyle::CE_RadioButton}) {
        QImage image(option.rect.size(), QImage::Format_RGB32);
        image.fill(theme().canvas);
        QPainter painter(&image);

        QApplication::style()->drawControl(element, &option, &painter);

        QCOMPARE(image.pixelColor(0, 14), theme().accent);
        QCOMPARE(image.pixelColor(119, 14), theme().accent);
        QCOMPARE(image.pixelColor(2, 14), theme().canvas);
        QVERIFY(almostHolds(image.copy(32, 0, 80, 28), theme().textPrimary));
    }
}

void StyleTest::theSliderOfAScrollBarFollowsItsValue_data()
{
    QTest::addColumn<int>("maximum");
    QTest::addColumn<int>("value");
    QTest::addColumn<QRect>("slider");

    QTest::newRow("at the top") << 300 << 0 << QRect(0, 0, 12, 100);
    QTest::newRow("in the middle") << 300 << 150 << QRect(0, 150, 12, 100);
    QTest::newRow("at the bottom") << 300 << 300 << QRect(0, 300, 12, 100);
    QTest::newRow("never shorter than can be held") << 2000000000 << 0 << QRect(0, 0, 12, 32);
    QTest::newRow("nothing to scroll") << 0 << 0 << QRect(0, 0, 12, 400);
}

void StyleTest::theSliderOfAScrollBarFollowsItsValue()
{
    QFETCH(int, maximum);
    QFETCH(int, value);
    QFETCH(QRect, slider);
    QStyleOptionSlider option;
    option.orientation = Qt::Vertical;
    option.rect = QRect(0, 0, 12, 400);
    option.maximum = maximum;
    option.pageStep = 100;
    option.sliderPosition = value;

    const QStyle* style = QApplication::style();
    QCOMPARE(
        style->subControlRect(QStyle::CC_ScrollBar, &option, QStyle::SC_ScrollBarSlider), slider);
    QCOMPARE(style->pixelMetric(QStyle::PM_ScrollBarExtent), 12);
}

void StyleTest::textSizesFollowTheApplicationFont_data()
{
    QTest::addColumn<int>("style");
    QTest::addColumn<qreal>("size");
    QTest::addColumn<int>("weight");

    const auto row = [](const char* name, TextStyle style, qreal size, int weight) {
        QTest::newRow(name) << int(style) << size << weight;
    };
    row("display", TextStyle::Display, 40, 600);
    row("title", TextStyle::Title, 30, 600);
    row("screen title", TextStyle::ScreenTitle, 26, 600);
    row("headline", TextStyle::Headline, 23, 600);
    row("card title", TextStyle::CardTitle, 21, 600);
    row("body", TextStyle::Body, 20, 400);
    row("name", TextStyle::Name, 20, 500);
    row("count", TextStyle::Count, 20, 600);
    row("callout", TextStyle::Callout, 19, 400);
    row("caption", TextStyle::Caption, 18, 400);
    row("header", TextStyle::Header, 17, 600);
    row("code", TextStyle::Code, 17, 400);
    row("tile value", TextStyle::TileValue, 44, 600);
}

void StyleTest::textSizesFollowTheApplicationFont()
{
    QFETCH(int, style);
    QFETCH(qreal, size);
    QFETCH(int, weight);
    QFont font = QApplication::font();
    font.setPointSize(20);
    QApplication::setFont(font);

    const QFont result = fontOf(static_cast<TextStyle>(style));

    QCOMPARE(result.pointSizeF(), size);
    QCOMPARE(int(result.weight()), weight);
}

REELHOUSE_TEST(StyleTest)

#include "StyleTest.moc"
