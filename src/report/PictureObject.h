#pragma once

#include "report/Drawing.h"

#include <QObject>
#include <QTextObjectInterface>
#include <QVector>

/// Paints drawings where a text document has them between its lines. A character of the type `type` names its drawing
/// by the property `index`.
class PictureObject : public QObject, public QTextObjectInterface
{
    Q_OBJECT
    Q_INTERFACES(QTextObjectInterface)
    Q_DISABLE_COPY(PictureObject)

public:
    static constexpr int type = QTextFormat::UserObject + 1;
    static constexpr int index = QTextFormat::UserProperty + 1;

    PictureObject() = default;
    ~PictureObject() override;

    /// The index of the drawing.
    int add(const Drawing &drawing);

    QSizeF intrinsicSize(QTextDocument *document, int position, const QTextFormat &format) override;
    void drawObject(QPainter *painter, const QRectF &rect, QTextDocument *document, int position,
                    const QTextFormat &format) override;

private:
    QVector<Drawing> m_drawings;
};
