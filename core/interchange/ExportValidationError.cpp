#include "core/interchange/ExportValidationError.h"

using namespace Qt::StringLiterals;

namespace reelhouse {

ExportValidationError ExportValidationError::unsupportedSchema(qint64 version)
{
    return {.kind = Kind::UnsupportedSchema, .version = version};
}

ExportValidationError ExportValidationError::duplicateName(
    const QString& category, const QString& name)
{
    return {.kind = Kind::DuplicateName, .category = category, .name = name};
}

ExportValidationError ExportValidationError::unknownReference(
    const QString& category, const QString& name)
{
    return {.kind = Kind::UnknownReference, .category = category, .name = name};
}

ExportValidationError ExportValidationError::countsTooLarge()
{
    return {.kind = Kind::CountsTooLarge};
}

QString ExportValidationError::description() const
{
    switch (kind) {
    case Kind::UnsupportedSchema:
        return u"Ce fichier utilise un format plus récent (version "_s + QString::number(version)
            + u") que cette version de l'application."_s;
    case Kind::DuplicateName:
        return u"Le fichier contient plusieurs "_s + category + u"s nommés « "_s + name + u" »."_s;
    case Kind::UnknownReference:
        return u"Un filament fait référence à un "_s + category + u" « "_s + name
            + u" » absent du fichier."_s;
    case Kind::CountsTooLarge:
        return u"Les nombres de bobines du fichier sont trop grands pour être additionnés."_s;
    }
    Q_UNREACHABLE();
}

} // namespace reelhouse
