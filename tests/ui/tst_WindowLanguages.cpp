#include "detector/store/KestDetectorFace.h"
#include "detector/store/Notices.h"
#include "detector/store/verdict.h"
#include "support/windowTexts.h"
#include "ui/widgets/FolderQuestion.h"
#include "ui/widgets/RingsProgressbar.h"
#include "ui/window/KestDetectorUI.h"
#include "ui/window/LabelQuestion.h"

#include <QDialog>
#include <QFileDialog>
#include <QFontMetrics>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

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
/// These shorten what does not fit, and tell it in full in their tool tip.
const QStringList elided()
{
    return {QStringLiteral("lbCurrComponent"), QStringLiteral("lbCurrCheckItem"), QStringLiteral("lbSavePath"),
            QStringLiteral("lbWifiName"),      QStringLiteral("lbWifiPassword"),  QStringLiteral("lbMacAddress"),
            QStringLiteral("lbConnectState"),  QStringLiteral("lbNotices"),       QStringLiteral("tbResults")};
}

void showSmall(KestDetectorUI *window)
{
    window->resize(800, 600);
    window->show();
}

QFileDialog *folderDialog()
{
    auto *dialog = qobject_cast<QFileDialog *>(QApplication::activeModalWidget());
    if (dialog == nullptr) {
        qFatal("No folder is asked for");
    }
    return dialog;
}
} // namespace

void tst_WindowLanguages::cleanup()
{
    KestDetectorFace::Get()->notices.withdrawRun();
    windowTexts::fallSilent();
}

void tst_WindowLanguages::nothingIsClipped_data()
{
    windowTexts::addLanguages();
}

void tst_WindowLanguages::nothingIsClipped()
{
    QFETCH(const Language, language);
    windowTexts::speak(language);
    KestDetectorUI window;
    showSmall(&window);
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    // What a run shows at its longest.
    window.slot_setConnectStatus(false);
    window.slot_showCheckResult(false);
    window.slot_showTotalPersent(100);
    window.slot_showCurrentPersent(100);
    KestDetectorFace::Get()->notices.tell(Notices::nothingTested());
    QTRY_COMPARE(windowTexts::clipped(&window, elided()).join(QLatin1Char('\n')), QString());
    QCOMPARE(window.size(), QSize(800, 600));
    QVERIFY(windowTexts::shown(&window).size() >= 30);
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
    windowTexts::addLanguages();
}

void tst_WindowLanguages::labelQuestionFits()
{
    QFETCH(const Language, language);
    windowTexts::speak(language);
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
    QTRY_COMPARE(windowTexts::clipped(dialog, elided()).join(QLatin1Char('\n')), QString());
    QCOMPARE(windowTexts::shown(dialog).size(), 4);
    QVERIFY(dialog->width() <= 800 && dialog->height() <= 600);
    question.withdraw();
}

void tst_WindowLanguages::folderQuestionFits_data()
{
    windowTexts::addLanguages();
}

void tst_WindowLanguages::folderQuestionFits()
{
    QFETCH(const Language, language);
    windowTexts::speak(language);
    FolderQuestion question(nullptr);
    question.ask(QCoreApplication::applicationDirPath());
    QFileDialog *dialog = folderDialog();
    QVERIFY(QTest::qWaitForWindowExposed(dialog));
    // The path of the folder, of whatever length, which its list tells in full.
    const QStringList path{QStringLiteral("lookInCombo")};
    QTRY_COMPARE(windowTexts::clipped(dialog, path).join(QLatin1Char('\n')), QString());
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
    windowTexts::speak(language);
    KestDetectorUI window;
    window.slot_setConnectStatus(false);
    window.slot_showCheckResult(false);
    window.slot_showCameraCheckResult(verdict::warning);
    QStringList texts;
    for (const char *name :
         {"tbStart", "tbChooseAll", "cbTFCard", "lbCameraStatus", "lbCurrComponent", "lbConnectState"}) {
        texts.append(windowTexts::textOf(window.findChild<QWidget *>(QString::fromLatin1(name))));
    }
    texts.append(window.findChild<QLabel *>(QStringLiteral("lbCamera"))->accessibleName());
    texts.append(window.windowTitle());
    texts.append(Notices::nothingTested().text);
    QTEST(texts, "texts");
}

void tst_WindowLanguages::nothingIsInAnotherLanguage_data()
{
    QTest::addColumn<Language>("language");

    QTest::newRow("English") << Language::English;
    QTest::newRow("Chinese") << Language::Chinese;
}

void tst_WindowLanguages::nothingIsInAnotherLanguage()
{
    QFETCH(const Language, language);
    windowTexts::speak(language);
    KestDetectorUI window;
    showSmall(&window);
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.slot_showCheckResult(false);
    static const QStringList named{QStringLiteral("lbWifiName"), QStringLiteral("lbMacAddress"),
                                   QStringLiteral("lbNotices")};
    QStringList texts;
    const QList<QWidget *> widgets = windowTexts::shown(&window);
    for (const QWidget *widget : widgets) {
        if (!named.contains(widget->objectName())) {
            texts.append(windowTexts::textOf(widget));
        }
    }
    QCOMPARE(windowTexts::foreign(texts, language, {QStringLiteral("NG"), QStringLiteral("PCBA")}), QStringList());
}

QTEST_MAIN(tst_WindowLanguages)
#include "tst_WindowLanguages.moc"
