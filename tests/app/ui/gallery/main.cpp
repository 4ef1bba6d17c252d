#include "app/ui/Palette.h"
#include "app/ui/SpoolwrightStyle.h"
#include "app/ui/ThemeService.h"
#include "tests/app/ui/gallery/Gallery.h"

#include <QtCore/QThread>
#include <QtGui/QPainter>
#include <QtWidgets/QApplication>

#include <cstdio>

namespace {

using namespace reelhouse;

QPixmap picture(const Theme& theme)
{
    auto* style = qobject_cast<SpoolwrightStyle*>(QApplication::style());
    style->setTheme(theme);
    QApplication::setPalette(paletteOf(theme));
    tests::Gallery gallery;
    gallery.resize(780, gallery.sizeHint().height());
    gallery.show();
    // Long enough for the fading of the status lines.
    for (int turn = 0; turn < 30; ++turn) {
        QApplication::processEvents();
        QThread::msleep(10);
    }
    return gallery.grab();
}

} // namespace

/// Writes the components in both themes, side by side, into the PNG file that the argument names.
int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    const QStringList arguments = QApplication::arguments();
    if (arguments.size() != 2) {
        std::fprintf(stderr, "Usage: gallery PICTURE.png\n");
        return 2;
    }
    // The font of the drawings that the picture is compared with.
    QApplication::setFont(QFont(QStringLiteral("Inter"), 10));
    const ThemeService themes{QDBusConnection(QString())};
    const QPixmap light = picture(lightTheme());
    const QPixmap dark = picture(darkTheme());
    QPixmap both(light.width() + dark.width(), light.height());
    QPainter painter(&both);
    painter.drawPixmap(QRect({}, light.size()), light);
    painter.drawPixmap(QRect({light.width(), 0}, dark.size()), dark);
    painter.end();
    if (!both.save(arguments.at(1))) {
        std::fprintf(stderr, "Cannot write %s\n", qPrintable(arguments.at(1)));
        return 1;
    }
    return 0;
}
