#include "detector/store/KestDetectorFace.h"
#include "detector/store/Notices.h"
#include "detector/store/verdict.h"
#include "language/Language.h"
#include "ui/widgets/FolderQuestion.h"
#include "ui/widgets/RingsProgressbar.h"
#include "ui/window/KestDetectorUI.h"
#include "ui/window/LabelQuestion.h"

#include <QAbstractButton>
#include <QDialog>
#include <QFileDialog>
#include <QFontMetrics>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QRegularExpression>
#include <QTest>
#include <QTranslator>

Q_DECLARE_METATYPE(Language)

/// Every window and dialog of the station in every language: nothing is clipped, and nothing is left in another
/// language.
class tst_WindowLanguages : public QObject
{
    Q_OBJECT

private slots:
    void nothingIsClipped_data();
    void nothingIsClipped();
    void labelQuestionFits_data();
    void labelQuestionFits();
    void folderQuestionFits_data();
    void folderQuestionFits();
    void texts_data();
    void texts();
    void nothingIsInAnotherLanguage_data();
    void nothingIsInAnotherLanguage();
    void cleanup();
};

namespace {
void languages()
{
    QTest::addColumn<Language>("language");

    QTest::newRow("as written") << Language::AsWritten;
    QTest::newRow("English") << Language::English;
    QTest::newRow("Chinese") << Language::Chinese;
}

void speak(Language language)
{
    installLanguage(*QCoreApplication::instance(), language);
}

QString textOf(const QWidget *widget)
{
    const char *const property = widget->inherits("QGroupBox") ? "title" : "text";
    return widget->property(property).toString();
}

/// Labels, buttons, check boxes and the frames around groups, where they are shown and say something.
QList<QWidget *> shownTexts(const QWidget *window)
{
    QList<QWidget *> shown;
    const QList<QWidget *> widgets = window->findChildren<QWidget *>();
    for (QWidget *widget : widgets) {
        const bool tells =
            widget->inherits("QLabel") || widget->inherits("QAbstractButton") || widget->inherits("QGroupBox");
        if (tells && widget->isVisible() && !textOf(widget).trimmed().isEmpty()) {
            shown.append(widget);
        }
    }
    return shown;
}

/// These shorten what does not fit, and tell it in full in their tool tip.
bool isElided(const QWidget *widget)
{
    static const QStringList names{
        QStringLiteral("lbCurrComponent"), QStringLiteral("lbCurrCheckItem"), QStringLiteral("lbSavePath"),
        QStringLiteral("lbWifiName"),      QStringLiteral("lbWifiPassword"),  QStringLiteral("lbMacAddress"),
        QStringLiteral("lbConnectState"),  QStringLiteral("lbNotices"),       QStringLiteral("tbResults")};
    return names.contains(widget->objectName());
}

/// The room that a widget's text takes.
QSize neededBy(const QWidget *widget)
{
    // The size of the frame is that of what is in it.
    return widget->inherits("QGroupBox") ? widget->fontMetrics().size(Qt::TextSingleLine, textOf(widget))
                                         : widget->sizeHint();
}

/// What is too small for its text, or leaves its window.
QStringList clipped(const QWidget *window)
{
    QStringList found;
    const QList<QWidget *> widgets = shownTexts(window);
    for (const QWidget *widget : widgets) {
        const QSize needed = neededBy(widget);
        const QRect place(widget->mapTo(window, QPoint()), widget->size());
        if ((!isElided(widget) && (widget->width() < needed.width() || widget->height() < needed.height())) ||
            !window->rect().contains(place)) {
            found.append(QStringLiteral("%1 \"%2\": %3 x %4 for %5 x %6")
                             .arg(widget->objectName(), textOf(widget))
                             .arg(widget->width())
                             .arg(widget->height())
                             .arg(needed.width())
                             .arg(needed.height()));
        }
    }
    return found;
}

void showSmall(KestDetectorUI *window)
{
    window->resize(800, 600);
    window->show();
}
} // namespace

void tst_WindowLanguages::cleanup()
{
    KestDetectorFace::Get()->notices.withdrawRun();
    qDeleteAll(QCoreApplication::instance()->findChildren<QTranslator *>());
}

void tst_WindowLanguages::nothingIsClipped_data()
{
    languages();
}

void tst_WindowLanguages::nothingIsClipped()
{
    QFETCH(const Language, language);
    speak(language);
    KestDetectorUI window;
    showSmall(&window);
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    // What a run shows at its longest.
    window.slot_setConnectStatus(false);
    window.slot_showCheckResult(false);
    window.slot_showTotalPersent(100);
    window.slot_showCurrentPersent(100);
    KestDetectorFace::Get()->notices.tell(Notices::nothingTested());
    QTRY_COMPARE(clipped(&window).join(QLatin1Char('\n')), QString());
    QCOMPARE(window.size(), QSize(800, 600));
    QVERIFY(shownTexts(&window).size() >= 30);
    for (const char *name : {"barTotal", "barCurrent"}) {
        const auto *ring = window.findChild<RingsProgressbar *>(QString::fromLatin1(name));
        const int hollow = qMin(ring->width(), ring->height()) - 40;
        const QFontMetrics metrics(QFont(QStringLiteral("Microsoft YaHei"), 15, QFont::Bold));
        QVERIFY(ring->text().endsWith(QStringLiteral("100%")));
        QVERIFY2(metrics.horizontalAdvance(ring->text()) <= hollow, name);
    }
}

void tst_WindowLanguages::labelQuestionFits_data()
{
    languages();
}

void tst_WindowLanguages::labelQuestionFits()
{
    QFETCH(const Language, language);
    speak(language);
    KestDetectorUI window;
    showSmall(&window);
    LabelQuestion question(&window);
    Questions questions;
    questions.asked = {Question::Serial, Question::Operator, Question::Batch};
    question.ask(questions, {});
    auto *dialog = window.findChild<QDialog *>(QStringLiteral("labelQuestion"));
    QVERIFY(dialog != nullptr);
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    // An empty serial number is none: the hint appears.
    QTest::keyClick(dialog->findChild<QLineEdit *>(QStringLiteral("leSerial")), Qt::Key_Return);
    QVERIFY(dialog->findChild<QLabel *>(QStringLiteral("lbSerialHint"))->isVisible());
    QTRY_COMPARE(clipped(dialog).join(QLatin1Char('\n')), QString());
    QCOMPARE(shownTexts(dialog).size(), 4);
    QVERIFY(dialog->width() <= 800 && dialog->height() <= 600);
    question.withdraw();
}

void tst_WindowLanguages::folderQuestionFits_data()
{
    languages();
}

void tst_WindowLanguages::folderQuestionFits()
{
    QFETCH(const Language, language);
    speak(language);
    FolderQuestion question(nullptr);
    question.ask(QCoreApplication::applicationDirPath());
    auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
    QVERIFY(dialog != nullptr);
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    QTRY_COMPARE(clipped(dialog).join(QLatin1Char('\n')), QString());
    QVERIFY(dialog->width() <= 800 && dialog->height() <= 600);
    question.withdraw();
}

void tst_WindowLanguages::texts_data()
{
    QTest::addColumn<Language>("language");
    QTest::addColumn<QStringList>("texts");

    QTest::newRow("as written") << Language::AsWritten
                                << QStringList{"Start",
                                               "Select All",
                                               "TF Card",
                                               "NG",
                                               "Current unit:Camera",
                                               "Connect State: Disconnected ",
                                               "Camera: warning",
                                               "KestDetector_V1.0.3",
                                               "nothing was tested"};
    QTest::newRow("English") << Language::English << QStringList{"Start",
                                                                 "Select all",
                                                                 "TF card",
                                                                 "NG",
                                                                 "Component: Camera",
                                                                 "Link: disconnected ",
                                                                 "Camera: warning",
                                                                 "KestDetector_V1.0.3",
                                                                 "nothing was tested"};
    QTest::newRow("Chinese") << Language::Chinese
                             << QStringList{"开始",
                                            "全选",
                                            "TF卡",
                                            "NG",
                                            "当前部件：相机",
                                            "连接状态：未连接 ",
                                            "相机：警告",
                                            "KestDetector_V1.0.3",
                                            "没有检测任何部件"};
}

void tst_WindowLanguages::texts()
{
    QFETCH(const Language, language);
    speak(language);
    KestDetectorUI window;
    window.slot_setConnectStatus(false);
    window.slot_showCheckResult(false);
    window.slot_showCameraCheckResult(verdict::warning);
    QStringList texts;
    for (const char *name :
         {"tbStart", "tbChooseAll", "cbTFCard", "lbCameraStatus", "lbCurrComponent", "lbConnectState"}) {
        texts.append(textOf(window.findChild<QWidget *>(QString::fromLatin1(name))));
    }
    texts.append(window.findChild<QLabel *>(QStringLiteral("lbCamera"))->accessibleName());
    texts.append(window.windowTitle());
    texts.append(Notices::nothingTested().text);
    QTEST(texts, "texts");
}

void tst_WindowLanguages::nothingIsInAnotherLanguage_data()
{
    QTest::addColumn<Language>("language");
    QTest::addColumn<QRegularExpression>("foreign"); // what belongs to another language

    const auto row = [](const char *title, Language language, const char *pattern) {
        QTest::newRow(title) << language
                             << QRegularExpression(QLatin1String(pattern),
                                                   QRegularExpression::UseUnicodePropertiesOption);
    };
    row("English", Language::English, "\\p{Han}");
    // Names and units stay.
    row("Chinese", Language::Chinese, "\\A(?!(NG|PCBA)\\Z)\\P{Han}+\\Z");
}

void tst_WindowLanguages::nothingIsInAnotherLanguage()
{
    QFETCH(const Language, language);
    QFETCH(const QRegularExpression, foreign);
    speak(language);
    KestDetectorUI window;
    showSmall(&window);
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.slot_showCheckResult(false);
    QStringList found;
    const QList<QWidget *> widgets = shownTexts(&window);
    for (const QWidget *widget : widgets) {
        static const QStringList named{QStringLiteral("lbWifiName"), QStringLiteral("lbMacAddress"),
                                       QStringLiteral("lbNotices")};
        if (!named.contains(widget->objectName()) && foreign.match(textOf(widget)).hasMatch()) {
            found.append(widget->objectName() + QStringLiteral(": ") + textOf(widget));
        }
    }
    QCOMPARE(found, QStringList());
}

QTEST_MAIN(tst_WindowLanguages)
#include "tst_WindowLanguages.moc"
