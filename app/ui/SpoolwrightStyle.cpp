#include "app/ui/SpoolwrightStyle.h"

#include "app/ui/ButtonPainting.h"
#include "app/ui/Compositing.h"
#include "app/ui/FocusRing.h"
#include "app/ui/FormGroup.h"
#include "app/ui/InputPainting.h"
#include "app/ui/InputState.h"
#include "app/ui/MenuPainting.h"
#include "app/ui/Palette.h"
#include "app/ui/RoundedPanel.h"
#include "app/ui/ViewPainting.h"

#include <QtGui/QPainter>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QAbstractItemView>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QMenu>
#include <QtWidgets/QStyleFactory>
#include <QtWidgets/QStyleOption>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr int boxGap = 10;
using ButtonPainting::boxInset;
constexpr int fieldPadding = 10;
constexpr int fieldHeight = 32;
constexpr int formFieldHeight = 28;
constexpr int comboPadding = 12;
constexpr int comboArrow = 28;
constexpr int comboIconGap = 8;

template <typename Option>
const Option& optionAs(const QStyleOption* option)
{
    const auto* narrowed = qstyleoption_cast<const Option*>(option);
    Q_ASSERT(narrowed != nullptr);
    return *narrowed;
}

/// The height of a text field or a picker.
int inputHeight(const QStyleOption& option, const QWidget* widget)
{
    bool isInForm = false;
    for (const QWidget* around = widget; around != nullptr && !isInForm;
         around = around->parentWidget())
        isInForm = qobject_cast<const FormGroup*>(around) != nullptr;
    return std::max(isInForm ? formFieldHeight : fieldHeight, option.fontMetrics.height() + 12);
}

bool isPopup(const QWidget* widget)
{
    return qobject_cast<const QMenu*>(widget) != nullptr || widget->inherits("QTipLabel");
}

} // namespace

const Theme& currentTheme()
{
    if (const auto* style = qobject_cast<const SpoolwrightStyle*>(QApplication::style()))
        return style->theme();
    static const Theme fallback = lightTheme();
    return fallback;
}

SpoolwrightStyle::SpoolwrightStyle(const Theme& theme)
    : QProxyStyle(QStyleFactory::create(u"Fusion"_s))
    , m_theme(theme)
{
}

QPalette SpoolwrightStyle::standardPalette() const
{
    return paletteOf(m_theme);
}

void SpoolwrightStyle::polish(QWidget* widget)
{
    QProxyStyle::polish(widget);
    if (qobject_cast<QAbstractButton*>(widget) != nullptr
        || qobject_cast<QComboBox*>(widget) != nullptr)
        widget->setAttribute(Qt::WA_Hover);
    if (widget->inherits("QComboBoxListView"))
        qobject_cast<QAbstractItemView*>(widget)->viewport()->setBackgroundRole(
            QPalette::ToolTipBase);
    if (isPopup(widget) && windowsAreComposited())
        widget->setAttribute(Qt::WA_TranslucentBackground);
}

void SpoolwrightStyle::unpolish(QWidget* widget)
{
    if (isPopup(widget))
        widget->setAttribute(Qt::WA_TranslucentBackground, false);
    QProxyStyle::unpolish(widget);
}

void SpoolwrightStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option,
    QPainter* painter, const QWidget* widget) const
{
    switch (element) {
    case PE_IndicatorCheckBox:
    case PE_IndicatorItemViewItemCheck:
        ButtonPainting::paintCheckIndicator(*painter, *option);
        return;
    case PE_IndicatorRadioButton:
        ButtonPainting::paintRadioIndicator(*painter, *option);
        return;
    case PE_PanelButtonTool:
        ButtonPainting::paintToolButtonPanel(*painter, *option);
        return;
    case PE_PanelMenu:
    case PE_FrameMenu:
        MenuPainting::paintPanel(*painter, *option, widget);
        return;
    case PE_PanelMenuBar:
        painter->fillRect(option->rect, m_theme.window);
        return;
    case PE_PanelLineEdit:
        if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
            frame != nullptr && frame->lineWidth > 0)
            InputPainting::paintField(*painter, *option, widget);
        return;
    case PE_FrameLineEdit:
        return; // Drawn with the panel: ground and border are one shape.
    case PE_PanelTipLabel:
        ViewPainting::paintToolTip(*painter, *option, widget);
        return;
    case PE_PanelItemViewItem:
        ViewPainting::paintItem(*painter, *option);
        return;
    case PE_PanelItemViewRow:
        return;
    case PE_PanelScrollAreaCorner:
        InputPainting::paintScrollAreaCorner(*painter, option->rect, widget);
        return;
    case PE_Frame:
    case PE_FrameGroupBox:
        paintRoundedPanel(*painter, option->rect, 0, {}, m_theme.hairline);
        return;
    case PE_FrameFocusRect:
        if ((option->state & State_KeyboardFocusChange) != 0)
            paintFocusRing(*painter, option->rect, ViewPainting::itemRadius, m_theme);
        return;
    default:
        QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void SpoolwrightStyle::drawControl(ControlElement element, const QStyleOption* option,
    QPainter* painter, const QWidget* widget) const
{
    switch (element) {
    case CE_PushButton:
        ButtonPainting::paintPushButton(*painter, optionAs<QStyleOptionButton>(option), widget);
        return;
    case CE_CheckBox:
        ButtonPainting::paintBox(*painter, optionAs<QStyleOptionButton>(option),
            subElementRect(SE_CheckBoxIndicator, option, widget),
            subElementRect(SE_CheckBoxContents, option, widget), ButtonPainting::BoxKind::Check);
        return;
    case CE_RadioButton:
        ButtonPainting::paintBox(*painter, optionAs<QStyleOptionButton>(option),
            subElementRect(SE_RadioButtonIndicator, option, widget),
            subElementRect(SE_RadioButtonContents, option, widget), ButtonPainting::BoxKind::Radio);
        return;
    case CE_MenuItem:
        MenuPainting::paintItem(*painter, optionAs<QStyleOptionMenuItem>(option), widget);
        return;
    case CE_MenuEmptyArea:
        return; // The panel already lies there.
    case CE_MenuBarItem:
        MenuPainting::paintBarItem(*painter, optionAs<QStyleOptionMenuItem>(option));
        return;
    case CE_MenuBarEmptyArea:
        painter->fillRect(option->rect, m_theme.window);
        return;
    case CE_Splitter:
        painter->fillRect(option->rect, m_theme.hairline);
        return;
    case CE_Header:
        ViewPainting::paintHeaderGround(*painter, option->rect);
        ViewPainting::paintHeaderLabel(*painter, optionAs<QStyleOptionHeader>(option));
        return;
    case CE_HeaderSection:
    case CE_HeaderEmptyArea:
        ViewPainting::paintHeaderGround(*painter, option->rect);
        return;
    case CE_ComboBoxLabel: {
        const auto& combo = optionAs<QStyleOptionComboBox>(option);
        InputPainting::paintComboBoxLabel(
            *painter, combo, subControlRect(CC_ComboBox, &combo, SC_ComboBoxEditField, widget));
        return;
    }
    case CE_ProgressBar:
        InputPainting::paintProgressBar(*painter, optionAs<QStyleOptionProgressBar>(option));
        return;
    default:
        QProxyStyle::drawControl(element, option, painter, widget);
    }
}

void SpoolwrightStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option,
    QPainter* painter, const QWidget* widget) const
{
    switch (control) {
    case CC_ScrollBar: {
        const auto& bar = optionAs<QStyleOptionSlider>(option);
        InputPainting::paintScrollBar(
            *painter, bar, widget, subControlRect(control, option, SC_ScrollBarSlider, widget));
        return;
    }
    case CC_ComboBox:
        InputPainting::paintComboBox(*painter, optionAs<QStyleOptionComboBox>(option));
        return;
    default:
        QProxyStyle::drawComplexControl(control, option, painter, widget);
    }
}

int SpoolwrightStyle::pixelMetric(
    PixelMetric metric, const QStyleOption* option, const QWidget* widget) const
{
    switch (metric) {
    case PM_IndicatorWidth:
    case PM_IndicatorHeight:
    case PM_ExclusiveIndicatorWidth:
    case PM_ExclusiveIndicatorHeight:
        return ButtonPainting::indicatorSize;
    case PM_CheckBoxLabelSpacing:
    case PM_RadioButtonLabelSpacing:
        return boxGap;
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_MenuBarPanelWidth:
    case PM_MenuPanelWidth:
    case PM_ScrollView_ScrollBarSpacing:
    case PM_ScrollView_ScrollBarOverlap:
    case PM_SubMenuOverlap:
        return 0;
    case PM_ScrollBarExtent:
        return InputPainting::scrollBarExtent;
    case PM_SplitterWidth:
        return 1;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return MenuPainting::menuPadding;
    case PM_MenuBarHMargin:
    case PM_MenuBarVMargin:
    case PM_MenuBarItemSpacing:
        return 2;
    case PM_LineEditIconMargin:
        return 7;
    case PM_SmallIconSize:
    case PM_ListViewIconSize:
        return 16;
    case PM_ButtonIconSize:
    case PM_LineEditIconSize:
        return 14;
    case PM_ToolTipLabelFrameWidth:
        return 6;
    default:
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int SpoolwrightStyle::styleHint(StyleHint hint, const QStyleOption* option, const QWidget* widget,
    QStyleHintReturn* returnData) const
{
    switch (hint) {
    case SH_ItemView_ActivateItemOnSingleClick:
    case SH_EtchDisabledText:
    case SH_DitherDisabledText:
    case SH_UnderlineShortcut:
        return 0;
    case SH_ComboBox_Popup: // The list of a picker is a menu.
    case SH_Menu_MouseTracking:
    case SH_ScrollBar_LeftClickAbsolutePosition:
        return 1;
    case SH_ToolTipLabel_Opacity:
        return 255;
    default:
        return QProxyStyle::styleHint(hint, option, widget, returnData);
    }
}

QSize SpoolwrightStyle::sizeFromContents(ContentsType type, const QStyleOption* option,
    const QSize& contents, const QWidget* widget) const
{
    switch (type) {
    case CT_PushButton:
        return ButtonPainting::pushButtonSize(optionAs<QStyleOptionButton>(option), widget);
    case CT_CheckBox:
    case CT_RadioButton: {
        const auto& button = optionAs<QStyleOptionButton>(option);
        const int text = button.text.isEmpty() ? 0 : boxGap + contents.width();
        const int height = std::max(ButtonPainting::indicatorSize, contents.height());
        return {ButtonPainting::indicatorSize + text + 2 * boxInset, height + 2 * boxInset};
    }
    case CT_MenuItem:
        return MenuPainting::itemSize(optionAs<QStyleOptionMenuItem>(option), contents);
    case CT_MenuBarItem:
        return contents + QSize(20, 10);
    case CT_LineEdit:
        return {contents.width() + 2 * fieldPadding, inputHeight(*option, widget)};
    case CT_ComboBox:
        return {contents.width() + comboPadding + comboIconGap + comboArrow,
            inputHeight(*option, widget)};
    case CT_HeaderSection:
        return ViewPainting::headerSize(optionAs<QStyleOptionHeader>(option));
    default:
        return QProxyStyle::sizeFromContents(type, option, contents, widget);
    }
}

QRect SpoolwrightStyle::subElementRect(
    SubElement element, const QStyleOption* option, const QWidget* widget) const
{
    const auto placed = [option](const QRect& rect) {
        return QStyle::visualRect(option->direction, option->rect, rect);
    };
    constexpr int indicator = ButtonPainting::indicatorSize;
    switch (element) {
    case SE_CheckBoxIndicator:
    case SE_RadioButtonIndicator:
        return placed({option->rect.left() + boxInset,
            option->rect.top() + (option->rect.height() - indicator) / 2, indicator, indicator});
    case SE_CheckBoxContents:
    case SE_RadioButtonContents:
        return placed(option->rect.adjusted(boxInset + indicator + boxGap, 0, -boxInset, 0));
    case SE_CheckBoxFocusRect:
    case SE_RadioButtonFocusRect:
    case SE_CheckBoxClickRect:
    case SE_RadioButtonClickRect:
        return option->rect;
    case SE_LineEditContents: {
        if (const auto* frame = qstyleoption_cast<const QStyleOptionFrame*>(option);
            frame != nullptr && frame->lineWidth <= 0)
            return option->rect;
        if (inputState(widget).shape == InputShape::Search)
            return option->rect.adjusted(0, 1, 0, -1); // Its icons keep the text off the ends.
        return option->rect.adjusted(fieldPadding - 2, 1, -fieldPadding + 2, -1);
    }
    default:
        return QProxyStyle::subElementRect(element, option, widget);
    }
}

QRect SpoolwrightStyle::subControlRect(ComplexControl control, const QStyleOptionComplex* option,
    SubControl subControl, const QWidget* widget) const
{
    if (control == CC_ScrollBar) {
        const auto& bar = optionAs<QStyleOptionSlider>(option);
        const QRect slider = InputPainting::scrollBarSlider(bar);
        const bool isHorizontal = bar.orientation == Qt::Horizontal;
        switch (subControl) {
        case SC_ScrollBarGroove:
            return bar.rect;
        case SC_ScrollBarSlider:
            return slider;
        case SC_ScrollBarSubPage:
            return isHorizontal
                ? QRect(bar.rect.topLeft(), QPoint(slider.left() - 1, bar.rect.bottom()))
                : QRect(bar.rect.topLeft(), QPoint(bar.rect.right(), slider.top() - 1));
        case SC_ScrollBarAddPage:
            return isHorizontal
                ? QRect(QPoint(slider.right() + 1, bar.rect.top()), bar.rect.bottomRight())
                : QRect(QPoint(bar.rect.left(), slider.bottom() + 1), bar.rect.bottomRight());
        default:
            return {};
        }
    }
    if (control == CC_ComboBox && subControl == SC_ComboBoxEditField)
        return QStyle::visualRect(option->direction, option->rect,
            option->rect.adjusted(comboPadding, 0, -comboArrow, 0));
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}

} // namespace reelhouse
