#include "core/product/Product.h"

#include "core/product/ProductData.h"

#include <QtCore/QUrl>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

QString givenOr(const char16_t* given, const QString& fallback)
{
    const QString text = QString::fromUtf16(given);
    return text.isEmpty() ? fallback : text;
}

} // namespace

Product Product::ofThisBuild()
{
    return {
        .version = givenOr(ProductData::version, u"1.0.0"_s),
        .build = givenOr(ProductData::build, u"1"_s),
        .developer = QString::fromUtf16(ProductData::developer),
        .website = QString::fromUtf16(ProductData::website),
        .email = QString::fromUtf16(ProductData::email),
        .rightsHolder = QString::fromUtf16(ProductData::rightsHolder),
        .rightsYear = QString::fromUtf16(ProductData::rightsYear),
    };
}

QString Product::rightsLine() const
{
    return u"© "_s + rightsYear + u' ' + rightsHolder + u". Tous droits réservés."_s;
}

QString Product::websiteHost() const
{
    return QUrl(website).host();
}

} // namespace reelhouse
