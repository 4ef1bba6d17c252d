#pragma once

#include <QtCore/QStringList>

#include <functional>
#include <xcb/xcb.h>

namespace reelhouse::tests {

class RunningProgram;
class ScreenReader;
class TestHome;
class VirtualDesktop;

/// Leads a running program through every screen, sheet and question that it has, by the keyboard
/// and by what it offers to assistive technology.
class EveryScreen final {
public:
    /// Sees one of them, at rest. `scene` is a name for it: letters and hyphens.
    using Look = std::function<void(const QString& scene)>;

    EveryScreen(VirtualDesktop& desktop, ScreenReader& reader, RunningProgram& program, Look look);

    /// Shows what there is to see of the sample stock, then of the one in the file `document`, then
    /// of an empty one. Returns what could not be shown.
    QStringList visit(const QString& document);
    /// Shows what there is to see when the stock cannot be opened.
    QStringList visitTemporaryStore();

private:
    void visitLibrary();
    void visitMenus();
    void visitEditing();
    void visitFavorites();
    void visitReferences();
    void visitTransfer(const QString& document);
    void visitImported();
    void visitPrinting();
    void visitShell();
    void visitEmptyStock();

    void key(xcb_keysym_t key, const QList<xcb_keysym_t>& held = {});
    void command(const QString& title);
    void press(const QString& button);
    void openSheet(const std::function<void()>& open, const QString& scene);
    void closeSheet();
    void closeMenu();
    void see(const QString& scene);
    void rest();
    void focusList(const QString& role);
    bool hasFocus(const QString& role) const;
    bool waitForWindows(int count);

    VirtualDesktop& m_desktop;
    ScreenReader& m_reader;
    RunningProgram& m_program;
    Look m_look;
    QStringList m_missing;
    int m_openSheets = 0;
};

} // namespace reelhouse::tests
