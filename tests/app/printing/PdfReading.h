#pragma once

#include <QtCore/QString>

/// What other programs find in a PDF.
namespace reelhouse::tests {

/// The output of `program` with `arguments`; fails the test when it cannot be run.
QString outputOf(const QString& program, const QStringList& arguments);

/// The text of every page as it lies on the page; pages are parted by a line of "----".
QString pageTexts(const QString& pdf);

/// The text in the order in which it is selected and read aloud.
QString readingOrder(const QString& pdf);

/// What pdfinfo says behind "key:"; empty when it does not.
QString documentFact(const QString& pdf, const QString& key);

} // namespace reelhouse::tests
