#include "report/Page.h"
#include "report/PictureObject.h"

#include <algorithm>
#include <QAbstractTextDocumentLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QSaveFile>
#include <QTextCursor>
#include <QTextDocument>
#include <QTextTable>

namespace {
constexpr double bodyPoints = 8;

QTextCharFormat characters(double points, bool isBold = false, const QColor &colour = Qt::black)
{
    QTextCharFormat format;
    format.setFontFamilies({QStringLiteral("Noto Sans"), QStringLiteral("DejaVu Sans"),
                            QStringLiteral("Noto Sans CJK SC"), QStringLiteral("WenQuanYi Micro Hei"),
                            QStringLiteral("sans-serif")});
    format.setFontPointSize(points);
    format.setFontWeight(isBold ? QFont::Bold : QFont::Normal);
    format.setForeground(colour);
    return format;
}

QTextBlockFormat block(double above, double below, Qt::Alignment alignment = Qt::AlignLeft)
{
    QTextBlockFormat format;
    format.setTopMargin(above);
    format.setBottomMargin(below);
    format.setAlignment(alignment);
    return format;
}

class DocumentWriter
{
public:
    DocumentWriter(QTextDocument *document, PictureObject *pictures) : m_cursor(document), m_pictures(pictures) {}

    void operator()(const Heading &heading)
    {
        const double points = heading.level == 1 ? 16 : heading.level == 2 ? 12 : 9;
        QTextBlockFormat format = block(heading.level == 1 ? 0 : 18, 5);
        format.setPageBreakPolicy(QTextFormat::PageBreak_Auto);
        begin(format, characters(points, true));
        m_cursor.insertText(heading.text);
    }

    void operator()(const Paragraph &paragraph)
    {
        begin(block(0, 3), characters(bodyPoints, false, paragraph.isMuted ? QColor(Qt::darkGray) : QColor(Qt::black)));
        m_cursor.insertText(paragraph.text);
    }

    /// Four of them beside each other.
    void operator()(const Figures &figures)
    {
        constexpr int columns = 4;
        const int rows = (static_cast<int>(figures.figures.size()) + columns - 1) / columns;
        QTextTable *table = beginTable(rows, columns, 0);
        for (int i = 0; i < figures.figures.size(); ++i) {
            QTextCursor cell = table->cellAt(i / columns, i % columns).firstCursorPosition();
            cell.insertText(figures.figures.at(i).name, characters(bodyPoints, false, Qt::darkGray));
            cell.insertBlock();
            cell.insertText(figures.figures.at(i).value, characters(12, true));
        }
        endTable();
    }

    void operator()(const Table &content)
    {
        QTextTable *table =
            beginTable(static_cast<int>(content.rows.size()) + 1, static_cast<int>(content.columns.size()), 1);
        for (int column = 0; column < content.columns.size(); ++column) {
            const Table::Column &shown = content.columns.at(column);
            write(table->cellAt(0, column), shown.name, shown.isNumber, true);
            for (int row = 0; row < content.rows.size(); ++row) {
                write(table->cellAt(row + 1, column), content.rows.at(row).value(column), shown.isNumber, false);
            }
        }
        endTable();
    }

    void operator()(const Picture &picture)
    {
        begin(block(4, 2), characters(bodyPoints));
        QTextCharFormat format;
        format.setObjectType(PictureObject::type);
        format.setProperty(PictureObject::index, m_pictures->add(picture.drawing));
        m_cursor.insertText(QString(QChar::ObjectReplacementCharacter), format);
        if (!picture.caption.isEmpty()) {
            begin(block(0, 6), characters(bodyPoints, false, Qt::darkGray));
            m_cursor.insertText(picture.caption);
        }
    }

private:
    /// The document begins with an empty block, and so does what stands behind a table.
    void begin(const QTextBlockFormat &format, const QTextCharFormat &text)
    {
        if (m_isFresh) {
            m_cursor.setBlockFormat(format);
            m_cursor.setCharFormat(text);
        } else {
            m_cursor.insertBlock(format, text);
        }
        m_isFresh = false;
    }

    QTextTable *beginTable(int rows, int columns, int headerRows)
    {
        begin(block(0, 0), characters(2));
        QTextTableFormat format;
        format.setHeaderRowCount(headerRows);
        format.setCellPadding(2);
        format.setCellSpacing(0);
        format.setBottomMargin(8);
        format.setBorder(0.5);
        format.setBorderBrush(Qt::lightGray);
        format.setBorderStyle(QTextFrameFormat::BorderStyle_Solid);
        format.setBorderCollapse(true);
        format.setWidth(QTextLength(QTextLength::PercentageLength, 100));
        return m_cursor.insertTable(std::max(rows, 1), std::max(columns, 1), format);
    }

    void endTable()
    {
        m_cursor.movePosition(QTextCursor::End);
        m_isFresh = true;
    }

    static void write(const QTextTableCell &cell, const QString &text, bool isNumber, bool isHead)
    {
        QTextCursor cursor = cell.firstCursorPosition();
        cursor.setBlockFormat(block(0, 0, isNumber ? Qt::AlignRight : Qt::AlignLeft));
        cursor.insertText(text, characters(bodyPoints - 1, isHead));
    }

    QTextCursor m_cursor;
    PictureObject *m_pictures;
    bool m_isFresh = true;
};
} // namespace

QString writePdf(const Page &page, const QString &path)
{
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly)) {
        return file.errorString();
    }
    QTextDocument document;
    document.setUndoRedoEnabled(false);
    PictureObject pictures;
    DocumentWriter writer(&document, &pictures);
    for (const Part &part : page.parts) {
        std::visit(writer, part);
    }
    // Only now: a document that has a layout is laid out anew at every change.
    document.documentLayout()->registerHandler(PictureObject::type, &pictures);
    {
        QPdfWriter pdf(&file);
        pdf.setTitle(page.title);
        pdf.setPageSize(QPageSize(QPageSize::A4));
        document.print(&pdf);
    }
    return file.commit() ? QString() : file.errorString();
}
