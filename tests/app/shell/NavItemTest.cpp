#include "app/shell/NavItem.h"

#include "tests/support/TestMain.h"

#include <QtTest/QTest>

using namespace reelhouse;
using namespace Qt::StringLiterals;

class NavItemTest final : public QObject {
    Q_OBJECT

private slots:
    void screensAreListedInTheirOrder();
};

void NavItemTest::screensAreListedInTheirOrder()
{
    QStringList listed;
    for (const NavItem item : allNavItems)
        listed << navItemTitle(item) + u" | "_s + navItemIcon(item);

    QCOMPARE(listed,
        (QStringList{u"Stock de filaments | books.vertical.fill"_s,
            u"Types de filament | square.3.layers.3d.down.right"_s, u"Marques | tag.fill"_s,
            u"Gammes | list.star"_s, u"Lieux | map.fill"_s,
            u"Export / Import | square.and.arrow.down.on.square"_s, u"Export CSV | tablecells"_s}));
}

REELHOUSE_TEST(NavItemTest)

#include "NavItemTest.moc"
