#include "tests/support/KeySymbols.h"
#include "tests/support/TestMain.h"
#include "tests/support/Waiting.h"
#include "tests/window/RunningProgram.h"
#include "tests/window/ScreenReader.h"
#include "tests/window/TestHome.h"
#include "tests/window/VirtualDesktop.h"

#include <QtCore/QRegularExpression>
#include <QtTest/QTest>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace reelhouse::tests {

/// Reads the real program as a screen reader does.
class AccessibleScreensTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void init();
    void statesAndValuesAreTold();
    void whatChangesIsSaid();
    void standardDialogsSpeakFrench_data();
    void standardDialogsSpeakFrench();

private:
    void start();
    std::optional<AccessibleObject> find(const QString& role, const QString& name) const;
    bool waitForState(
        const QString& role, const QString& name, AccessibleState state, bool isSet = true) const;
    void press(const QString& role, const QString& name) const;
    void choose(const QString& command) const;
    QString value(const QString& role, const QString& name) const;
    /// Waits for the window with this title to have the keyboard and stand still; all that it says.
    QStringList textsOfWindow(const QString& title) const;

    std::unique_ptr<VirtualDesktop> m_desktop;
    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<ScreenReader> m_reader;
    std::unique_ptr<RunningProgram> m_program;
};

void AccessibleScreensTest::initTestCase()
{
    if (!VirtualDesktop::isPossible() || !ScreenReader::isPossible())
        QSKIP("Xvfb or the accessibility bus is not installed: scripts/setup installs them.");
}

void AccessibleScreensTest::init()
{
    m_program.reset();
    m_reader.reset();
    m_desktop = std::make_unique<VirtualDesktop>();
    QVERIFY(m_desktop->startWindowManager());
    m_home = std::make_unique<TestHome>();
    m_reader = std::make_unique<ScreenReader>(*m_home, m_desktop->display());
}

void AccessibleScreensTest::start()
{
    m_program = std::make_unique<RunningProgram>(*m_home, *m_desktop);
    QVERIFY(m_program->waitForWindow().has_value());
    QVERIFY(waitUntil([&] { return m_reader->activeWindow().has_value(); }));
}

std::optional<AccessibleObject> AccessibleScreensTest::find(
    const QString& role, const QString& name) const
{
    const auto window = m_reader->activeWindow();
    return window ? window->find(role, name) : std::nullopt;
}

bool AccessibleScreensTest::waitForState(
    const QString& role, const QString& name, AccessibleState state, bool isSet) const
{
    return waitUntil(
        [&] {
            const auto object = find(role, name);
            return object && object->is(state) == isSet;
        },
        5s);
}

void AccessibleScreensTest::press(const QString& role, const QString& name) const
{
    std::optional<AccessibleObject> control;
    const auto isThere = [&] {
        control = find(role, name);
        return control.has_value();
    };
    QVERIFY2(waitUntil(isThere, 5s), qPrintable(name));
    m_reader->press(*control);
}

/// From the menu bar.
void AccessibleScreensTest::choose(const QString& command) const
{
    std::optional<AccessibleObject> found;
    m_reader->read()->forEach([&](const AccessibleObject& object) {
        if (object.role.endsWith(u"menu item"_s) && object.name == command)
            found = object;
    });
    QVERIFY2(found, qPrintable(command));
    m_reader->press(*found);
}

QString AccessibleScreensTest::value(const QString& role, const QString& name) const
{
    const auto object = find(role, name);
    return object ? m_reader->value(*object) : u"missing"_s;
}

QStringList AccessibleScreensTest::textsOfWindow(const QString& title) const
{
    const auto isThere = [&] {
        const auto window = m_reader->activeWindow();
        return window && window->name == title;
    };
    QStringList texts;
    if (!waitUntil(isThere, 5s))
        return texts;
    m_desktop->screen().waitForRest(m_desktop->screen().area(), 200ms);
    m_reader->activeWindow()->forEach([&](const AccessibleObject& object) {
        texts << object.name << object.description << object.label;
    });
    return texts;
}

void AccessibleScreensTest::statesAndValuesAreTold()
{
    m_home->setPreferences({{u"confirmOnQuit"_s, u"false"_s}, {u"maxBackups"_s, u"7"_s}});
    start();
    Screen& screen = m_desktop->screen();

    // The mode that is chosen, and what was not.
    QVERIFY(waitForState(u"radio button"_s, u"Liste"_s, AccessibleState::Checked));
    QVERIFY(waitForState(u"radio button"_s, u"Cartes"_s, AccessibleState::Checked, false));
    screen.pressKey('3', {Key::control});
    QVERIFY(waitForState(u"radio button"_s, u"Stats"_s, AccessibleState::Checked));
    QVERIFY(waitForState(u"radio button"_s, u"Liste"_s, AccessibleState::Checked, false));
    // The bars: 8 filaments, 12 spools.
    QCOMPARE(value(u"progress bar"_s, u"PLA"_s), u"4 of 0 to 8"_s);
    screen.pressKey('1', {Key::control});
    QVERIFY(waitForState(u"radio button"_s, u"Liste"_s, AccessibleState::Checked));

    // The row that is selected is, and no other.
    screen.waitForRest(screen.area(), 200ms);
    screen.pressKey('f', {Key::control});
    for (const xcb_keysym_t key : {Key::tab, Key::tab, Key::down}) // The favourites, the list.
        screen.pressKey(key);
    const auto selected = [&] {
        qsizetype count = 0;
        for (const AccessibleObject& cell : m_reader->activeWindow()->all(u"cell"_s))
            count += cell.is(AccessibleState::Selected) ? 1 : 0;
        return count;
    };
    QVERIFY(waitUntil([&] { return selected() == 5; }, 5s));

    // Toggles and steppers.
    screen.pressKey(',', {Key::control});
    const QString quit = u"Confirmer avant de quitter l'application"_s;
    const QString remember = u"Mémoriser la taille de la fenêtre et la dernière vue"_s;
    QVERIFY(waitForState(u"check box"_s, quit, AccessibleState::Checked, false));
    QVERIFY(waitForState(u"check box"_s, remember, AccessibleState::Checked));
    press(u"check box"_s, quit);
    QVERIFY(waitForState(u"check box"_s, quit, AccessibleState::Checked));
    QCOMPARE(value(u"spin box"_s, u"Nombre de sauvegardes à garder"_s), u"7 of 1 to 100"_s);
}

void AccessibleScreensTest::whatChangesIsSaid()
{
    start();
    Screen& screen = m_desktop->screen();

    // What is found.
    screen.pressKey('f', {Key::control});
    screen.type("rouge");
    QVERIFY(m_reader->waitForAnnouncement(u"1 résultat"_s));
    screen.pressKey(Key::escape);
    QVERIFY(m_reader->waitForAnnouncement(u"8 résultats"_s));

    // A name that is taken.
    choose(u"Marques"_s);
    press(u"push button"_s, u"Ajouter une marque"_s);
    QVERIFY(waitUntil([&] { return screen.find(u"Nouvelle marque"_s).has_value(); }));
    screen.waitForRest(screen.area(), 200ms);
    screen.type("sunlu");
    QVERIFY(m_reader->waitForAnnouncement(u"Ce nom existe déjà."_s));
    screen.pressKey(Key::escape);
    QVERIFY(waitForState(u"push button"_s, u"Ajouter une marque"_s, AccessibleState::Showing));

    // A report on a work that is done, each time.
    screen.pressKey(',', {Key::control});
    for (int time = 0; time < 2; ++time) {
        m_reader->takeAnnouncements();
        press(u"push button"_s, u"Purger maintenant"_s);
        QVERIFY(m_reader->waitForAnnouncement(u"Anciennes sauvegardes supprimées"_s));
    }
    screen.pressKey(Key::escape);

    // A note that fades away.
    choose(u"À propos de Reelhouse"_s);
    press(u"push button"_s, u"contact@spoolwright.example"_s);
    QVERIFY(m_reader->waitForAnnouncement(u"Adresse e-mail copiée dans le presse-papier"_s));
    screen.pressKey(Key::escape);

    // What prevents printing.
    choose(u"Stock de filaments"_s);
    screen.pressKey('p', {Key::control});
    for (const QString& column : {u"Type"_s, u"Marque"_s, u"Gamme"_s, u"Nom de la couleur"_s,
             u"Lieu"_s, u"Bobines"_s, u"Notes"_s})
        press(u"check box"_s, column);
    QVERIFY(m_reader->waitForAnnouncement(u"Sélectionnez au moins une colonne à imprimer."_s));
}

void AccessibleScreensTest::standardDialogsSpeakFrench_data()
{
    QTest::addColumn<QString>("language");
    for (const char* language : {"C", "en_US.UTF-8", "fr_FR.UTF-8"})
        QTest::newRow(language) << QString::fromLatin1(language);
}

void AccessibleScreensTest::standardDialogsSpeakFrench()
{
    QFETCH(QString, language);
    static const QRegularExpression english(
        u"\\b(bytes?|[KMG]i?B|Files?|Folder|Directory|Computer|Name|Size|Date Modified|Modified|"
        u"AM|PM|Nov|Look in|Cancel|Open|Save|Close|Back|Forward|Parent|Create|List|Detail|"
        u"Print|Printer|Paper|Pages? [sS]et.*|Advanced|Properties|Landscape|Width|Height|Zoom in|"
        u"Zoom out|Next|Previous|First|Last|Fit|Show)\\b"_s);
    m_home->setVariable(u"LC_ALL"_s, language);
    start();
    const auto check = [&](const QString& title, const QString& expected) {
        const QStringList texts = textsOfWindow(title);
        QVERIFY2(texts.contains(expected), qPrintable(title + u": "_s + texts.join(u" | "_s)));
        const QStringList untranslated = texts.filter(english);
        QVERIFY2(untranslated.isEmpty(), qPrintable(untranslated.join(u" | "_s)));
    };
    Screen& screen = m_desktop->screen();

    choose(u"Export / Import"_s);
    press(u"push button"_s, u"Exporter"_s);
    check(u"Exporter le stock"_s, u"Dernière modification"_s);
    screen.pressKey(Key::escape);
    press(u"push button"_s, u"Importer"_s); // A backup was made at launch.
    check(u"Importer le stock"_s, u"Fichier JSON"_s);
    screen.pressKey(Key::escape);
    choose(u"Stock de filaments"_s);
    screen.pressKey('p', {Key::control});
    press(u"push button"_s, u"Exporter en PDF"_s);
    check(u"Exporter le stock en PDF"_s, u"Dernière modification"_s);
    screen.pressKey(Key::escape);
    press(u"push button"_s, u"Aperçu…"_s);
    check(u"Aperçu avant impression"_s, u"Imprimer"_s);
    press(u"push button"_s, u"Imprimer"_s);
    check(u"Imprimer"_s, u"Propriétés"_s);
    press(u"push button"_s, u"Propriétés"_s);
    check(u"Propriétés de l'imprimante"_s, u"Mise en page"_s);
}

} // namespace reelhouse::tests

using reelhouse::tests::AccessibleScreensTest;
REELHOUSE_TEST(AccessibleScreensTest)

#include "AccessibleScreensTest.moc"
