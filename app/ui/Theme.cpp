#include "app/ui/Theme.h"

namespace reelhouse {

Theme lightTheme()
{
    return Theme{
        .isDark = false,
        .window = QColor(0xF3F4F6),
        .canvas = QColor(0xFAFAFB),
        .list = QColor(0xFFFFFF),
        .surface = QColor(0xFFFFFF),
        .sunken = QColor(0xECEEF1),
        .raised = QColor(0xFFFFFF),
        .menu = QColor(0xFFFFFF),
        .hairline = QColor(0xE2E4E9),
        .line = QColor(0xC9CDD5),
        .control = QColor(0x8B919E),
        .off = QColor(0x8B919E),
        .track = QColor(0xE7E9EE),
        .scroller = QColor(0x868C99),
        .textPrimary = QColor(0x1B1D22),
        .textSecondary = QColor(0x545965),
        .textTertiary = QColor(0x626875),
        .accent = QColor(0x667EEA),
        .accentText = QColor(0x4A5CCB),
        .chosenIcon = QColor(0x4A5CCB),
        .accentButton = QColor(0x4F62D6),
        .accentButtonHover = QColor(0x4456C6),
        .onAccent = QColor(0xFFFFFF),
        .selection = QColor(0xE6EAFC),
        .selectionSide = QColor(0xDCE1F5),
        .hover = QColor::fromRgbF(20 / 255.F, 24 / 255.F, 40 / 255.F, 0.045F),
        .red = QColor(0xC4242B),
        .redFill = QColor(0xC4242B),
        .redSoft = QColor(0xFBE9E9),
        .orange = QColor(0x9A5200),
        .orangeGraphic = QColor(0xD47210),
        .orangeSoft = QColor(0xFDF0E0),
        .green = QColor(0x17734A),
        .greenSoft = QColor(0xE4F4EB),
        .scrim = QColor::fromRgbF(24 / 255.F, 26 / 255.F, 36 / 255.F, 0.32F),
        .typeTint = {QColor(0x4F8FF7), QColor(0xE3EDFE), QColor(0x1D5FCB)},
        .brandTint = {QColor(0x764BA2), QColor(0xE9E2F0), QColor(0x6D429A)},
        .rangeTint = {QColor(0x2EC4B6), QColor(0xDEF6F3), QColor(0x0B7168)},
        .locationTint = {QColor(0xF6A25C), QColor(0xFEF0E5), QColor(0x954E08)},
        .countTint = {QColor(0xE84393), QColor(0xFBE1EE), QColor(0xB81C69)},
        .typeBar = QColor(0x667EEA),
        .brandBar = QColor(0x764BA2),
        .locationBar = QColor(0xF6A25C),
        .typesMark = QColor(0x9B6BC9),
        .gradientStart = QColor(0x667EEA),
        .gradientEnd = QColor(0x764BA2),
    };
}

Theme darkTheme()
{
    return Theme{
        .isDark = true,
        .window = QColor(0x1C1D21),
        .canvas = QColor(0x212226),
        .list = QColor(0x212226),
        .surface = QColor(0x2A2B30),
        .sunken = QColor(0x18191C),
        .raised = QColor(0x474A54),
        .menu = QColor(0x2E2F35),
        .hairline = QColor(0x35373D),
        .line = QColor(0x4C4F58),
        .control = QColor(0x7D828F),
        .off = QColor(0x757A87),
        .track = QColor(0x36383F),
        .scroller = QColor(0x757A87),
        .textPrimary = QColor(0xECEDF1),
        .textSecondary = QColor(0xAEB3BF),
        .textTertiary = QColor(0x999FAC),
        .accent = QColor(0x667EEA),
        .accentText = QColor(0xA9B6FA),
        .chosenIcon = QColor(0xECEDF1),
        .accentButton = QColor(0x5468DC),
        .accentButtonHover = QColor(0x4B60D4),
        .onAccent = QColor(0xFFFFFF),
        .selection = QColor(0x333A5C),
        .selectionSide = QColor(0x31385A),
        .hover = QColor::fromRgbF(1, 1, 1, 0.05F),
        .red = QColor(0xFF8C86),
        .redFill = QColor(0xC93A40),
        .redSoft = QColor(0x46282B),
        .orange = QColor(0xFFB066),
        .orangeGraphic = QColor(0xF0933A),
        .orangeSoft = QColor(0x453524),
        .green = QColor(0x6ED3A1),
        .greenSoft = QColor(0x21402F),
        .scrim = QColor::fromRgbF(0, 0, 0, 0.52F),
        .typeTint = {QColor(0x4F8FF7), QColor(0x2D3E5C), QColor(0x8DB8FF)},
        .brandTint = {QColor(0x764BA2), QColor(0x372D46), QColor(0xC9A9EC)},
        .rangeTint = {QColor(0x2EC4B6), QColor(0x244C4B), QColor(0x56D9CC)},
        .locationTint = {QColor(0xF6A25C), QColor(0x584334), QColor(0xF8B885)},
        .countTint = {QColor(0xE84393), QColor(0x552B42), QColor(0xF793C4)},
        .typeBar = QColor(0x667EEA),
        .brandBar = QColor(0x9B6BC9),
        .locationBar = QColor(0xF6A25C),
        .typesMark = QColor(0x9B6BC9),
        .gradientStart = QColor(0x8EA2FF),
        .gradientEnd = QColor(0xB48AE0),
    };
}

Theme withHighContrast(Theme theme)
{
    theme.hairline = theme.textSecondary;
    theme.line = theme.textSecondary;
    theme.control = theme.textSecondary;
    theme.textSecondary = theme.textPrimary;
    theme.textTertiary = theme.textPrimary;
    return theme;
}

} // namespace reelhouse
