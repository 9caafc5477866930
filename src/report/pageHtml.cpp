#include "record/plainText.h"
#include "report/Page.h"
#include "report/ReportTexts.h"

#include <algorithm>
#include <array>
#include <QXmlStreamWriter>

namespace {
const char *const styles = R"css(
@page { size: A4; margin: 14mm 12mm; }
* { box-sizing: border-box; }
body { font: 13px/1.45 "Noto Sans", "DejaVu Sans", "Noto Sans CJK SC", "WenQuanYi Micro Hei", "Microsoft YaHei", sans-serif;
       color: #222; background: #fff; max-width: 780px; margin: 24px auto; padding: 0 20px; }
h1 { font-size: 22px; margin: 0 0 4px; }
h2 { font-size: 16px; margin: 26px 0 8px; padding-bottom: 3px; border-bottom: 1px solid #ccc; break-after: avoid; }
h3 { font-size: 13px; margin: 16px 0 2px; break-after: avoid; }
p { margin: 4px 0; overflow-wrap: anywhere; }
.muted { color: #666; }
dl { display: grid; grid-template-columns: repeat(4, 1fr); gap: 8px; margin: 14px 0; }
dl div { border: 1px solid #ccc; border-radius: 4px; padding: 6px 10px; break-inside: avoid; }
dt { color: #666; font-size: 11px; }
dd { margin: 0; font-size: 18px; font-weight: bold; }
table { border-collapse: collapse; width: 100%; margin: 6px 0; font-size: 11.5px; }
thead { display: table-header-group; }
th { text-align: left; background: #f0f2f5; }
th, td { border-bottom: 1px solid #ddd; padding: 3px 6px; vertical-align: top; overflow-wrap: anywhere; }
th.number, td.number { text-align: right; white-space: nowrap; overflow-wrap: normal; }
td { white-space: pre-line; }
th.whole, td.whole { white-space: nowrap; overflow-wrap: normal; }
tr { break-inside: avoid; }
figure { margin: 8px 0 12px; break-inside: avoid; }
figure svg { max-width: 100%; height: auto; display: block; }
figcaption { color: #444; font-size: 11.5px; }
@media print { body { max-width: none; margin: 0; padding: 0; } * { print-color-adjust: exact; } }
)css";

class HtmlWriter
{
public:
    explicit HtmlWriter(const Page &page) : m_xml(&m_bytes)
    {
        m_bytes = QByteArrayLiteral("<!DOCTYPE html>\n");
        m_xml.setAutoFormatting(false);
        begin("html");
        m_xml.writeAttribute(QStringLiteral("lang"),
                             ReportTexts::tr("en", "the language of the page, as HTML names it"));
        begin("head");
        meta("charset", QStringLiteral("utf-8"), {});
        meta("http-equiv", QStringLiteral("Content-Security-Policy"),
             QStringLiteral("default-src 'none'; style-src 'unsafe-inline'"));
        meta("name", QStringLiteral("viewport"), QStringLiteral("width=device-width, initial-scale=1"));
        element("title", page.title);
        element("style", QString::fromUtf8(styles));
        end();
        m_xml.writeCharacters(QStringLiteral("\n"));
        begin("body");
        for (const Part &part : page.parts) {
            std::visit(*this, part);
            m_xml.writeCharacters(QStringLiteral("\n"));
        }
        end();
        end();
    }

    QByteArray bytes() const { return m_bytes + '\n'; }

    void operator()(const Heading &heading)
    {
        constexpr std::array names = {"h1", "h2", "h3"};
        element(names.at(static_cast<std::size_t>(heading.level - 1)), heading.text);
    }

    void operator()(const Paragraph &paragraph) { element("p", paragraph.text, paragraph.isMuted ? "muted" : nullptr); }

    void operator()(const Figures &figures)
    {
        begin("dl");
        for (const Figures::Figure &figure : figures.figures) {
            begin("div");
            element("dt", figure.name);
            element("dd", figure.value);
            end();
        }
        end();
    }

    void operator()(const Table &table)
    {
        begin("table");
        begin("thead");
        begin("tr");
        for (const Table::Column &column : table.columns) {
            element("th", column.name, classOf(column, column.name));
        }
        end();
        end();
        begin("tbody");
        for (const QStringList &row : table.rows) {
            begin("tr");
            for (int i = 0; i < table.columns.size(); ++i) {
                element("td", row.value(i), classOf(table.columns.at(i), row.value(i)));
            }
            end();
            m_xml.writeCharacters(QStringLiteral("\n"));
        }
        end();
        end();
    }

    void operator()(const Picture &picture)
    {
        begin("figure");
        writeSvg(picture.drawing, &m_xml);
        if (!picture.caption.isEmpty()) {
            element("figcaption", picture.caption);
        }
        end();
    }

private:
    static const char *classOf(const Table::Column &column, const QString &text)
    {
        if (column.isNumber) {
            return "number";
        }
        return column.wholeUpTo > 0 && fits(text, column.wholeUpTo) ? "whole" : nullptr;
    }

    static bool fits(const QString &text, int characters)
    {
        constexpr char16_t firstWide = 0x1100; // Hangul; the scripts below it are as wide as Latin or narrower
        const auto wide = std::count_if(text.begin(), text.end(), [](QChar c) { return c.unicode() >= firstWide; });
        return text.size() + wide <= characters && !text.contains(QLatin1Char('\n'));
    }

    void begin(const char *name) { m_xml.writeStartElement(QLatin1String(name)); }
    void end() { m_xml.writeEndElement(); }

    void element(const char *name, const QString &text, const char *className = nullptr)
    {
        begin(name);
        if (className != nullptr) {
            m_xml.writeAttribute(QStringLiteral("class"), QLatin1String(className));
        }
        // Even an empty text: browsers know no elements that end in their own tag.
        m_xml.writeCharacters(xmlText(text));
        end();
    }

    void meta(const char *key, const QString &value, const QString &content)
    {
        m_xml.writeEmptyElement(QStringLiteral("meta"));
        m_xml.writeAttribute(QLatin1String(key), value);
        if (!content.isEmpty()) {
            m_xml.writeAttribute(QStringLiteral("content"), content);
        }
    }

    QByteArray m_bytes;
    QXmlStreamWriter m_xml;
};
} // namespace

QByteArray toHtml(const Page &page)
{
    return HtmlWriter(page).bytes();
}
