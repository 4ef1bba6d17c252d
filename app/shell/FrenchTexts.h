#pragma once

#include <QtCore/QTranslator>

namespace reelhouse {

/// Has Qt's own dialogs, menus and standard buttons speak French, whatever the language of the
/// session is, for as long as the object lives. The desktop's own dialogs take their place in a
/// session that speaks French. Made after the QApplication.
class FrenchTexts final {
public:
    FrenchTexts();
    ~FrenchTexts();
    FrenchTexts(const FrenchTexts&) = delete;
    FrenchTexts& operator=(const FrenchTexts&) = delete;

private:
    class Translator final : public QTranslator {
    public:
        QString translate(const char* context, const char* source, const char* disambiguation,
            int n) const override;
    };

    Translator m_translator;
};

} // namespace reelhouse
