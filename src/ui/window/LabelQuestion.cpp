#include "ui/window/LabelQuestion.h"

#include <algorithm>
#include <iterator>
#include <QDialog>
#include <QFormLayout>
#include <QLabel>
#include <QLineEdit>

namespace {
struct Field
{
    Question question;
    QString RunLabels::*text;
    const char *objectName;
    const char *caption; ///< for translation in the context "LabelQuestion"
};

constexpr Field fields[] = {
    {Question::Serial, &RunLabels::serial, "leSerial", QT_TRANSLATE_NOOP("LabelQuestion", "Serial number:")},
    {Question::Operator, &RunLabels::operatorName, "leOperator", QT_TRANSLATE_NOOP("LabelQuestion", "Operator:")},
    {Question::Batch, &RunLabels::batch, "leBatch", QT_TRANSLATE_NOOP("LabelQuestion", "Batch:")},
};

const Field &fieldOf(Question question)
{
    return *std::find_if(std::begin(fields), std::end(fields),
                         [question](const Field &field) { return field.question == question; });
}
} // namespace

LabelQuestion::LabelQuestion(QWidget *window) : QObject(window), m_window(window) {}

void LabelQuestion::ask(const Questions &questions, const RunLabels &labels)
{
    if (m_dialog != nullptr) {
        return;
    }
    m_questions = questions;
    m_labels = labels;
    m_fields.clear();
    m_dialog = new QDialog(m_window);
    m_dialog->setObjectName(QStringLiteral("labelQuestion"));
    m_dialog->setAttribute(Qt::WA_DeleteOnClose);
    m_dialog->setWindowTitle(tr("Start"));
    m_dialog->setModal(true);
    auto *form = new QFormLayout(m_dialog);
    for (const Question question : qAsConst(m_questions.asked)) {
        addField(question);
    }
    m_hint = new QLabel(tr("No such serial number"), m_dialog);
    m_hint->setObjectName(QStringLiteral("lbSerialHint"));
    m_hint->setVisible(false);
    form->addRow(m_hint);
    m_dialog->show();
    m_fields.constFirst()->setFocus();
}

void LabelQuestion::addField(Question question)
{
    const Field &field = fieldOf(question);
    auto *edit = new QLineEdit(m_dialog);
    edit->setObjectName(QLatin1String(field.objectName));
    if (question != Question::Serial) {
        edit->setText(m_labels.*field.text);
        edit->selectAll(); // what is scanned takes its place
    }
    const int number = static_cast<int>(m_fields.size());
    connect(edit, &QLineEdit::returnPressed, this, [this, number] { fieldEnded(number); });
    m_fields.append(edit);
    static_cast<QFormLayout *>(m_dialog->layout())->addRow(tr(field.caption), edit);
}

bool LabelQuestion::isComplete(int field) const
{
    return m_questions.asked.at(field) != Question::Serial ||
           m_questions.serialPattern.matches(m_fields.at(field)->text().trimmed());
}

void LabelQuestion::stayAt(int field)
{
    m_hint->setVisible(true);
    m_fields.at(field)->setFocus();
    m_fields.at(field)->selectAll();
}

void LabelQuestion::fieldEnded(int field)
{
    m_hint->setVisible(false);
    const bool last = field + 1 == m_fields.size();
    // Behind the last one each field is looked at once more: the operator may have gone back.
    for (int i = last ? 0 : field; i <= field; ++i) {
        if (!isComplete(i)) {
            stayAt(i);
            return;
        }
    }
    if (!last) {
        m_fields.at(field + 1)->setFocus();
        m_fields.at(field + 1)->selectAll();
        return;
    }
    finish();
}

void LabelQuestion::finish()
{
    for (int i = 0; i < m_fields.size(); ++i) {
        m_labels.*fieldOf(m_questions.asked.at(i)).text = m_fields.at(i)->text().trimmed();
    }
    m_dialog->close();
    m_dialog.clear(); // it goes with the next turn of the event loop, and may be asked for again at once
    emit answered(m_labels);
}

void LabelQuestion::withdraw()
{
    delete m_dialog;
}
