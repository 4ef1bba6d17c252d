#include "app/printing/PdfFile.h"

#include "app/printing/PagePainter.h"

#include <QtCore/QDir>
#include <QtCore/QFileInfo>
#include <QtCore/QXmlStreamWriter>

using namespace Qt::StringLiterals;

namespace reelhouse {

namespace {

constexpr auto reportTitle = "Stock de filaments";
constexpr auto creatorName = "Spoolwright";
constexpr auto dublinCore = "http://purl.org/dc/elements/1.1/";
constexpr auto rdfSyntax = "http://www.w3.org/1999/02/22-rdf-syntax-ns#";
constexpr auto xmpBasic = "http://ns.adobe.com/xap/1.0/";

/// One entry of an XMP list: "Alt", "Bag" or "Seq".
void writeListed(QXmlStreamWriter& xml, const QString& property, const QString& list,
    const QString& value, const QString& language = {})
{
    xml.writeStartElement(QString::fromLatin1(dublinCore), property);
    xml.writeStartElement(QString::fromLatin1(rdfSyntax), list);
    xml.writeStartElement(QString::fromLatin1(rdfSyntax), u"li"_s);
    if (!language.isEmpty())
        xml.writeAttribute(u"xml:lang"_s, language);
    xml.writeCharacters(value);
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndElement();
}

/// What the document says of itself: the information dictionary has no place for a language.
QByteArray makeXmpPacket(const Product& product)
{
    QByteArray body;
    QXmlStreamWriter xml(&body);
    xml.writeStartElement(u"x:xmpmeta"_s);
    xml.writeAttribute(u"xmlns:x"_s, u"adobe:ns:meta/"_s);
    xml.writeNamespace(QString::fromLatin1(rdfSyntax), u"rdf"_s);
    xml.writeNamespace(QString::fromLatin1(dublinCore), u"dc"_s);
    xml.writeNamespace(QString::fromLatin1(xmpBasic), u"xmp"_s);
    xml.writeStartElement(QString::fromLatin1(rdfSyntax), u"RDF"_s);
    xml.writeStartElement(QString::fromLatin1(rdfSyntax), u"Description"_s);
    xml.writeAttribute(QString::fromLatin1(rdfSyntax), u"about"_s, {});
    xml.writeTextElement(QString::fromLatin1(dublinCore), u"format"_s, u"application/pdf"_s);
    writeListed(xml, u"title"_s, u"Alt"_s, QString::fromLatin1(reportTitle), u"x-default"_s);
    writeListed(xml, u"language"_s, u"Bag"_s, u"fr-FR"_s);
    if (!product.developer.isEmpty())
        writeListed(xml, u"creator"_s, u"Seq"_s, product.developer);
    xml.writeTextElement(
        QString::fromLatin1(xmpBasic), u"CreatorTool"_s, QString::fromLatin1(creatorName));
    xml.writeEndElement();
    xml.writeEndElement();
    xml.writeEndElement();
    return "<?xpacket begin=\"\xef\xbb\xbf\" id=\"W5M0MpCehiHzreSzNTczkc9d\"?>\n" + body
        + "\n<?xpacket end=\"r\"?>\n";
}

PrintError failureOf(const QSaveFile& file)
{
    switch (file.error()) {
    case QFileDevice::ResourceError:
        return {u"Le disque est plein."_s};
    case QFileDevice::PermissionsError:
        return {u"L'accès est refusé."_s};
    default:
        break;
    }
    const QFileInfo target(file.fileName());
    if (target.isDir())
        return {u"Un dossier se trouve à la place du fichier."_s};
    if (!target.dir().exists())
        return {u"Le dossier n'existe pas."_s};
    return {u"Le fichier n'a pas pu être écrit."_s};
}

} // namespace

PdfFile::PdfFile(const QString& path, PageOrientation orientation, const Product& product)
    : m_file(path)
    , m_writer(&m_file)
{
    constexpr int pointsPerInch = 72;
    m_writer.setResolution(pointsPerInch);
    m_writer.setPageLayout(reportPageLayout(orientation));
    m_writer.setTitle(QString::fromLatin1(reportTitle));
    m_writer.setCreator(QString::fromLatin1(creatorName));
    m_writer.setDocumentXmpMetadata(makeXmpPacket(product));
}

std::optional<PrintError> PdfFile::open()
{
    if (m_file.open(QIODevice::WriteOnly))
        return std::nullopt;
    return failureOf(m_file);
}

std::optional<PrintError> PdfFile::error() const
{
    if (m_file.error() == QFileDevice::NoError)
        return std::nullopt;
    return failureOf(m_file);
}

std::optional<PrintError> PdfFile::commit()
{
    // A commit that fails because of an earlier error no longer says which.
    m_file.flush();
    if (auto earlier = error())
        return earlier;
    if (m_file.commit())
        return std::nullopt;
    return failureOf(m_file);
}

} // namespace reelhouse
