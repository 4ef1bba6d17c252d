#include "app/shell/AboutView.h"

#include "app/shell/NoticesView.h"
#include "app/ui/Announcement.h"
#include "app/ui/ButtonLook.h"
#include "app/ui/ColorMath.h"
#include "app/ui/IconView.h"
#include "app/ui/Palette.h"
#include "app/ui/Separator.h"
#include "app/ui/Symbol.h"
#include "app/ui/TextStyle.h"

#include <QtCore/QPropertyAnimation>
#include <QtCore/QUrl>
#include <QtGui/QClipboard>
#include <QtGui/QDesktopServices>
#include <QtGui/QGuiApplication>
#include <QtGui/QPainter>
#include <QtGui/QPainterPath>
#include <QtWidgets/QGraphicsOpacityEffect>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QStyle>
#include <QtWidgets/QVBoxLayout>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace reelhouse {

namespace {

constexpr int aboutWidth = 360;
constexpr int aboutPadding = 24;
constexpr int iconSide = 80;
constexpr qreal iconRadius = 20;
constexpr int iconShadow = 10;
constexpr int closeButtonWidth = 110;
constexpr auto confirmationTime = 2s;
constexpr int confirmationFade = 200; // milliseconds

/// The application's icon without the margin of its file, on a soft shadow.
class AboutIcon final : public QWidget {
public:
    explicit AboutIcon(QWidget* parent)
        : QWidget(parent)
    {
        setFixedSize(iconSide + 2 * iconShadow, iconSide + 2 * iconShadow);
    }

protected:
    void paintEvent(QPaintEvent*) override
    {
        QPainter painter(this);
        painter.setRenderHint(QPainter::Antialiasing);
        painter.setRenderHint(QPainter::SmoothPixmapTransform);
        const QRectF square(iconShadow, iconShadow, iconSide, iconSide);
        painter.setPen(Qt::NoPen);
        painter.setBrush(faded(Qt::black, 0.02));
        for (int spread = iconShadow - 3; spread > 0; --spread) {
            painter.drawRoundedRect(
                square.adjusted(-spread, -spread, spread, spread).translated(0, 3),
                iconRadius + spread, iconRadius + spread);
        }
        QPainterPath shape;
        shape.addRoundedRect(square, iconRadius, iconRadius);
        painter.setClipPath(shape);
        constexpr qreal wholeSide = iconSide * 256.0 / 240.0; // its file has a margin of 8 in 256
        constexpr qreal margin = (wholeSide - iconSide) / 2;
        const QPixmap icon
            = applicationIcon().pixmap(QSize(iconSide, iconSide), 2 * devicePixelRatioF());
        painter.drawPixmap(square.adjusted(-margin, -margin, margin, margin), icon, icon.rect());
    }
};

QLabel* centredLine(const QString& text, TextStyle style, TextTone tone, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setAlignment(Qt::AlignCenter);
    label->setWordWrap(true);
    setTextStyle(label, style);
    setTextTone(label, tone);
    return label;
}

QPushButton* linkButton(const QIcon& icon, const QString& text, QWidget* parent)
{
    auto* button = new QPushButton(icon, text, parent);
    setButtonLook(button, ButtonLook::Link);
    button->setAutoDefault(false);
    return button;
}

} // namespace

AboutView::AboutView(const Product& product, QWidget* parent)
    : Sheet(u"À propos de Spoolwright"_s, aboutWidth, parent)
    , m_confirmation(nullptr)
    , m_confirmationStrength(nullptr)
{
    setPadding(aboutPadding);
    body()->setSpacing(0);
    body()->addWidget(new AboutIcon(this), 0, Qt::AlignHCenter);
    addTexts(product);
    addContacts(product);
    body()->addSpacing(12);
    body()->addWidget(new Separator(this));
    body()->addSpacing(10);
    body()->addWidget(
        centredLine(product.rightsLine(), TextStyle::Caption, TextTone::Secondary, this));
    QPushButton* notices = linkButton({}, u"Composants tiers"_s, this);
    setTextStyle(notices, TextStyle::Caption);
    body()->addWidget(notices, 0, Qt::AlignHCenter);
    connect(notices, &QPushButton::clicked, this, &AboutView::showNotices);

    auto* closeButton = new QPushButton(u"Fermer"_s, this);
    closeButton->setMinimumWidth(closeButtonWidth);
    closeButton->setDefault(true);
    buttonRow()->addStretch(1);
    buttonRow()->addWidget(closeButton);
    buttonRow()->addStretch(1);
    connect(closeButton, &QPushButton::clicked, this, &QDialog::accept);
    closeButton->setFocus();

    m_confirmationTime.setSingleShot(true);
    m_confirmationTime.setInterval(confirmationTime);
    connect(&m_confirmationTime, &QTimer::timeout, this, [this] { fadeConfirmation(0); });
}

void AboutView::addTexts(const Product& product)
{
    body()->addSpacing(8);
    body()->addWidget(centredLine(u"Spoolwright"_s, TextStyle::Title, TextTone::Primary, this));
    body()->addSpacing(4);
    body()->addWidget(centredLine(u"Version "_s + product.version + u" ("_s + product.build + u')',
        TextStyle::Callout, TextTone::Secondary, this));
    body()->addSpacing(14);
    body()->addWidget(
        centredLine(u"Gérez facilement votre stock de filaments\npour vos imprimantes 3D."_s,
            TextStyle::Body, TextTone::Primary, this));
    body()->addSpacing(14);
    body()->addWidget(centredLine(
        u"Développé par "_s + product.developer, TextStyle::Callout, TextTone::Secondary, this));
}

void AboutView::addContacts(const Product& product)
{
    QPushButton* website
        = linkButton(symbolIcon(u"globe"_s, &Theme::accentText), product.websiteHost(), this);
    QPushButton* email
        = linkButton(symbolIcon(u"envelope"_s, &Theme::accentText), product.email, this);
    m_confirmation = makeCopyConfirmation();
    body()->addSpacing(8);
    body()->addWidget(website, 0, Qt::AlignHCenter);
    body()->addWidget(email, 0, Qt::AlignHCenter);
    body()->addWidget(m_confirmation, 0, Qt::AlignHCenter);
    connect(website, &QPushButton::clicked, this,
        [address = product.website] { QDesktopServices::openUrl(QUrl(address)); });
    connect(email, &QPushButton::clicked, this, [this, address = product.email] { copy(address); });
}

QWidget* AboutView::makeCopyConfirmation()
{
    auto* line = new QWidget(this);
    auto* text = new QLabel(u"Adresse e-mail copiée dans le presse-papier"_s, line);
    setTextStyle(text, TextStyle::Caption);
    setTextTone(text, TextTone::Green);
    auto* row = new QHBoxLayout(line);
    row->setContentsMargins(0, 0, 0, 0);
    row->setSpacing(6);
    row->addWidget(new IconView(symbolIcon(u"checkmark"_s, &Theme::green), 11, line));
    row->addWidget(text);
    QSizePolicy policy = line->sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    line->setSizePolicy(policy);
    m_confirmationStrength = new QGraphicsOpacityEffect(line);
    m_confirmationStrength->setOpacity(0);
    line->setGraphicsEffect(m_confirmationStrength);
    line->hide();
    return line;
}

void AboutView::copy(const QString& email)
{
    QGuiApplication::clipboard()->setText(email);
    m_confirmation->show();
    fadeConfirmation(1);
    m_confirmationTime.start();
    announce(m_confirmation->findChild<QLabel*>());
}

void AboutView::showNotices()
{
    auto* sheet = new NoticesView(this);
    sheet->setAttribute(Qt::WA_DeleteOnClose);
    sheet->open();
}

void AboutView::fadeConfirmation(qreal strength)
{
    const bool isAnimated
        = style()->styleHint(QStyle::SH_Widget_Animation_Duration, nullptr, this) != 0;
    auto* fade = new QPropertyAnimation(m_confirmationStrength, "opacity", this);
    fade->setDuration(isAnimated ? confirmationFade : 0);
    fade->setEndValue(strength);
    connect(fade, &QPropertyAnimation::finished, m_confirmation,
        [this] { m_confirmation->setVisible(m_confirmationStrength->opacity() > 0); });
    fade->start(QAbstractAnimation::DeleteWhenStopped);
}

} // namespace reelhouse
