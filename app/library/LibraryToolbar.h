#pragma once

#include <QtWidgets/QWidget>

class QAbstractButton;

namespace reelhouse {

/// The line above the library: its title, the mode picker and what can be done with the stock.
class LibraryToolbar final : public QWidget {
    Q_OBJECT

public:
    explicit LibraryToolbar(QWidget* parent = nullptr);

signals:
    void additionRequested();
    void printRequested();
    void settingsRequested();
    void aboutRequested();

private:
    QAbstractButton* makeIconButton(const QString& symbol, const QString& name);
};

} // namespace reelhouse
