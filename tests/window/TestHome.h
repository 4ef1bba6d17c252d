#pragma once

#include <QtCore/QMap>
#include <QtCore/QProcessEnvironment>
#include <QtCore/QStringList>
#include <QtCore/QTemporaryDir>

#include <optional>

namespace reelhouse::tests {

/// A user's HOME, removed with the object, and what Spoolwright keeps there.
class TestHome final {
public:
    TestHome();

    /// The environment of a program of this user on `display`; nothing of the real user's is left.
    QProcessEnvironment environment(const QString& display) const;

    /// Gives programs started from now on an environment variable.
    void setVariable(const QString& name, const QString& value);
    /// Makes the desktop of this user a dark one, for programs started from now on.
    void darken();
    /// Gives the desktop of this user a large font, for programs started from now on.
    void enlargeFonts();

    QString dataFolder() const;
    QString storeFile() const;
    QString preferencesFile() const;
    /// Every file and folder under the home, by its path relative to it.
    QStringList everything() const;
    /// Puts a document into the user's folder and returns where it is.
    QString addDocument(const QByteArray& bytes) const;
    /// Puts something that cannot be opened where the store is.
    void breakStore() const;

    /// What one preference holds; empty when it is absent.
    QString preference(const QString& key) const;
    /// Replaces the whole preference file.
    void setPreferences(const QMap<QString, QString>& values) const;
    /// The same, byte for byte.
    void writePreferenceFile(const QByteArray& bytes) const;

    /// How many spools each filament has, by its identity, read from a copy of the store's files:
    /// as the program that comes next would find them. Nothing when the store is not whole.
    std::optional<QMap<qint64, qint64>> spoolsInStore() const;

    /// The backups' files, from the oldest to the newest.
    QStringList backups() const;

    /// Every filament, in the order of identities, as its fields with "|" between: identity, type,
    /// brand, range, place, spools, opened ones, colour code, colour name, notes, milliseconds of
    /// its date. Read as above; references by their names, "-" for none.
    std::optional<QStringList> filamentsInStore() const;

private:
    QString path(const QString& relative) const;
    /// Adds lines to the file from which Qt takes the colours and fonts of a desktop.
    void addToDesktop(const QByteArray& lines);

    QTemporaryDir m_folder;
    QMap<QString, QString> m_variables;
};

} // namespace reelhouse::tests
