#include "tests/support/KeySymbols.h"
#include "tests/support/TestMain.h"
#include "tests/support/Waiting.h"
#include "tests/window/RunningProgram.h"
#include "tests/window/TestHome.h"
#include "tests/window/VirtualDesktop.h"

#include <QtCore/QFile>
#include <QtTest/QTest>

#include <csignal>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace reelhouse::tests {

namespace {

// From the window's upper left corner.
constexpr QPoint screenEntry(100, 412); ///< "Export / Import" in the sidebar.
constexpr QPoint exportButton(760, 447);
constexpr QPoint importButton(760, 491);
constexpr QPoint outcomeLine(760, 547);

QByteArray otherDocument()
{
    return R"({"brands":[],"filaments":[{"colorHex":"#00F","colorName":"Bleu",)"
           R"("dateAdded":"2025-03-14T09:26:53Z","notes":"","spoolsCount":1}],)"
           R"("locations":[],"ranges":[],"types":[]})";
}

/// What a document carries: no identity, dates to the second.
QStringList transferred(const QStringList& filaments)
{
    QStringList carried;
    for (const QString& filament : filaments)
        carried << filament.section(u'|', 1).chopped(3);
    return carried;
}

} // namespace

/// Exports, imports what was damaged, replaces the stock and restores it, in the real program.
class TransferTest final : public QObject {
    Q_OBJECT

private slots:
    void initTestCase();
    void aStockTravelsAndComesBack();

private:
    bool rest() const { return m_desktop->screen().waitForRest(m_desktop->screen().area(), 150ms); }
    bool waitForSheet(const QString& title) const;
    void click(const QPoint& place) const;
    /// Types the name of a file into the panel that is open.
    void choose(const QString& panel, const QByteArray& name) const;
    void confirmReplacing() const;
    /// Waits for the line under the buttons to say something and copies it, as the user may.
    QString outcome() const;
    QStringList rows() const { return m_home->filamentsInStore().value_or(QStringList()); }
    QStringList backups() const { return m_home->everything().filter(u"/sauvegarde_"_s); }

    std::unique_ptr<VirtualDesktop> m_desktop;
    std::unique_ptr<TestHome> m_home;
    std::unique_ptr<RunningProgram> m_program;
    QRect m_window;
};

void TransferTest::initTestCase()
{
    if (!VirtualDesktop::isPossible())
        QSKIP("Xvfb is not installed: scripts/setup installs it.");
}

bool TransferTest::waitForSheet(const QString& title) const
{
    const pid_t process = m_program->processId();
    return waitUntil([&] { return m_desktop->screen().find(title, process).has_value(); })
        && rest();
}

void TransferTest::click(const QPoint& place) const
{
    m_desktop->screen().movePointer(m_window.topLeft() + place);
    m_desktop->screen().click();
    rest();
}

void TransferTest::choose(const QString& panel, const QByteArray& name) const
{
    Screen& screen = m_desktop->screen();
    QVERIFY(waitForSheet(panel));
    for (const char letter : name) {
        if (letter == '_')
            screen.pressKey('-', {Key::shift});
        else
            screen.type(QByteArray(1, letter));
    }
    rest(); // The panel proposes names while one is typed.
    screen.pressKey(Key::enter);
    QVERIFY(waitUntil([&] { return !screen.find(panel, m_program->processId()); }));
}

void TransferTest::confirmReplacing() const
{
    QVERIFY(waitForSheet(u"Effacer les données existantes ?"_s));
    // "Annuler" has the focus.
    m_desktop->screen().pressKey(Key::tab);
    m_desktop->screen().pressKey(Key::enter);
}

QString TransferTest::outcome() const
{
    rest();
    click(outcomeLine);
    m_desktop->screen().pressKey('a', {Key::control});
    m_desktop->screen().pressKey('c', {Key::control});
    rest();
    return m_desktop->screen().clipboardText();
}

void TransferTest::aStockTravelsAndComesBack()
{
    m_desktop = std::make_unique<VirtualDesktop>();
    QVERIFY(m_desktop->startWindowManager());
    m_home = std::make_unique<TestHome>();
    m_home->setPreferences({{u"autoBackupOnLaunch"_s, u"false"_s}});
    m_program = std::make_unique<RunningProgram>(*m_home, *m_desktop);
    const auto window = m_program->waitForWindow();
    QVERIFY(window.has_value());
    const QStringList atFirst = rows();
    QCOMPARE(atFirst.size(), 8);
    m_window = window->area;

    // Exported.
    click(screenEntry);
    click(exportButton);
    choose(u"Exporter le stock"_s, "essai");
    QCOMPARE(outcome(), u"Export réussi ! (8 filaments)"_s);

    // Damaged and refused.
    QFile exported(m_home->dataFolder() + u"/../essai.json"_s);
    QVERIFY(exported.open(QFile::ReadOnly));
    const QByteArray document = exported.readAll();
    const auto write = [&](const QString& name, const QByteArray& bytes) {
        QFile file(m_home->dataFolder() + u'/' + name); // Where the panel begins without backups.
        return file.open(QFile::WriteOnly) && file.write(bytes) == bytes.size();
    };
    QVERIFY(write(u"abime.json"_s, document.first(document.size() / 2)));
    click(importButton);
    choose(u"Importer le stock"_s, "abime.json");
    const QString refusal = outcome();
    QVERIFY2(refusal.startsWith(u"Erreur d'import : ligne "_s)
            && refusal.endsWith(u" : le fichier n'est pas un document JSON valide"_s),
        qPrintable(refusal));
    QCOMPARE(rows(), atFirst);
    QCOMPARE(backups(), QStringList());

    // Replaced by another stock.
    QVERIFY(write(u"autre.json"_s, otherDocument()));
    click(importButton);
    choose(u"Importer le stock"_s, "autre.json");
    confirmReplacing();
    QVERIFY(waitUntil([&] { return rows().size() == 1; }));
    QCOMPARE(outcome(),
        u"Import réussi ! (1 filaments) — une sauvegarde de sécurité a été créée avant le remplacement."_s);
    QCOMPARE(backups().size(), 1);

    // Restored from the backup that was written just before, in the folder where the panel begins.
    click(importButton);
    choose(u"Importer le stock"_s, backups().constFirst().section(u'/', -1).toUtf8());
    confirmReplacing();
    QVERIFY(waitUntil([&] { return rows().size() == atFirst.size(); }));
    QCOMPARE(transferred(rows()), transferred(atFirst));
    QCOMPARE(backups().size(), 2);

    QCOMPARE(m_program->endWith(SIGTERM), 0);
    QCOMPARE(transferred(rows()), transferred(atFirst));
    QCOMPARE(m_program->output(), QByteArray());
}

} // namespace reelhouse::tests

using reelhouse::tests::TransferTest;
REELHOUSE_TEST(TransferTest)

#include "TransferTest.moc"
