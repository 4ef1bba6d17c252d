#include "app/library/FavoriteTexts.h"

#include "app/ui/IconView.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"

#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>

using namespace Qt::StringLiterals;

namespace reelhouse::FavoriteTexts {

namespace {

constexpr int headerStarSide = 18;

} // namespace

QString summary(const FilterCriteria& criteria)
{
    return criteria.summary().value_or(u"Tous les filaments"_s);
}

QString nameTaken()
{
    return u"Un favori porte déjà ce nom."_s;
}

QWidget* makeHeader(const QString& title, QWidget* parent)
{
    auto* header = new QWidget(parent);
    auto* label = new QLabel(title, header);
    setTextStyle(label, TextStyle::ScreenTitle);
    auto* row = new QHBoxLayout(header);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(9);
    row->addWidget(
        new IconView(symbolIcon(u"star.fill"_s, &Theme::accentText), headerStarSide, header));
    row->addWidget(label, 1);
    return header;
}

} // namespace reelhouse::FavoriteTexts
