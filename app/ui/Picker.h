#pragma once

#include <QtCore/QElapsedTimer>
#include <QtWidgets/QComboBox>

#include <vector>

namespace reelhouse {

/// One choice of a Picker.
struct PickerEntry {
    qint64 id = 0; ///< What the choice stands for; never 0, which is "none".
    QString name;
    QString symbol; ///< Drawn in front of the name; may be empty.

    bool operator==(const PickerEntry&) const = default;
};

/// Chooses one of a list of names, or none of them. Flat and right-aligned, for the row of a form;
/// a name that does not fit is cut and shown whole as tooltip. Letters typed jump to a name.
/// Only those entries are drawn that are seen, and only the longest measured.
class Picker final : public QComboBox {
    Q_OBJECT

public:
    /// `none` is the first choice, "Aucun" or "Sélectionner…", and means 0.
    explicit Picker(const QString& none, QWidget* parent = nullptr);

    /// Shows these names, in this order. The choice stays when it is still among them, else it
    /// becomes none. Emits nothing.
    void setEntries(std::vector<PickerEntry> entries);
    /// The choice, or 0.
    qint64 choice() const;
    /// Shows another choice; one that is not among the entries is none. Emits nothing.
    void setChoice(qint64 id);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;
    void showPopup() override;

signals:
    /// The user chose; 0 for none.
    void choiceEdited(qint64 id);

protected:
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    class Model;

    QRect textRect() const;

    Model* m_model;
    QElapsedTimer m_sinceLetter; ///< Since the last key of a name that is being typed.
};

} // namespace reelhouse
