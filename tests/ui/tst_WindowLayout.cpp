#include "detector/store/KestDetectorFace.h"
#include "ui/widgets/RingsProgressbar.h"
#include "ui/window/KestDetectorUI.h"
#include "ui_KestDetectorUI.h"

#include <QGroupBox>
#include <QImage>
#include <QTest>

namespace {
const char *const panelStyle = "background-color: rgb(250, 250, 250);\ncolor: rgb(0, 0, 0);";
const char *const notTestedStyle = "border-image: url(:/icon/NA1.jpg);";

QWidget *find(const QWidget &window, const QString &name)
{
    return window.findChild<QWidget *>(name);
}

/// The text that a widget shows, whatever its kind calls it.
QString textOf(const QWidget *widget)
{
    const char *const property = widget->inherits("QGroupBox") ? "title" : "text";
    return widget->property(property).toString();
}

QString describe(const QWidget *widget)
{
    const QRect area = widget->geometry();
    return QStringLiteral("%1 %2x%3 at %4,%5")
        .arg(widget->objectName())
        .arg(area.width())
        .arg(area.height())
        .arg(area.x())
        .arg(area.y());
}

QList<QWidget *> shownChildren(const QWidget *parent)
{
    QList<QWidget *> shown;
    const QList<QWidget *> children = parent->findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly);
    for (QWidget *child : children) {
        if (child->isVisible()) {
            shown.append(child);
        }
    }
    return shown;
}

/// Every widget below `parent` that overlaps a neighbour, leaves its parent or is smaller than it needs to be.
QStringList misplaced(const QWidget *parent)
{
    QStringList found;
    const QList<QWidget *> children = shownChildren(parent);
    for (int i = 0; i < children.size(); ++i) {
        const QWidget *child = children.at(i);
        if (!parent->rect().contains(child->geometry())) {
            found.append(QStringLiteral("outside its parent: ") + describe(child));
        }
        const QSize needed = child->minimumSizeHint().boundedTo(child->maximumSize());
        const bool mayShrink = child->sizePolicy().horizontalPolicy() == QSizePolicy::Ignored;
        if (child->height() < needed.height() || (!mayShrink && child->width() < needed.width())) {
            found.append(QStringLiteral("too small: ") + describe(child));
        }
        for (int k = i + 1; k < children.size(); ++k) {
            if (child->geometry().intersects(children.at(k)->geometry())) {
                found.append(QStringLiteral("overlap: %1, %2").arg(describe(child), describe(children.at(k))));
            }
        }
        if (!child->inherits("QAbstractScrollArea")) {
            found += misplaced(child);
        }
    }
    return found;
}

QImage grayIcon(const QString &file)
{
    return QImage(QStringLiteral(":/icon/") + file)
        .scaled(40, 40, Qt::IgnoreAspectRatio, Qt::SmoothTransformation)
        .convertToFormat(QImage::Format_Grayscale8);
}
} // namespace

class tst_WindowLayout : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void widgetTree_data();
    void widgetTree();
    void layouts_data();
    void layouts();
    void stretches();
    void formTexts_data();
    void formTexts();
    void formTicks_data();
    void formTicks();
    void styles_data();
    void styles();
    void fonts_data();
    void fonts();
    void texts_data();
    void texts();
    void plainTexts_data();
    void plainTexts();
    void eventLogTable();
    void statusBarOrder();
    void statusLabelsKeepRoomForTheirCaption_data();
    void statusLabelsKeepRoomForTheirCaption();
    void icons_data();
    void icons();
    void iconsDifferWithoutColour();
    void nothingIsClippedOrOverlaps_data();
    void nothingIsClippedOrOverlaps();
    void fitsIntoASmallScreen_data();
    void fitsIntoASmallScreen();
    void largeScreenChangesNothing();
    void shrinksBackFromFullHd();
    void ringsFitTheirWidgets();
    void longTextsDoNotWidenTheWindow();
    void refusedStartIsReadWhole_data();
    void refusedStartIsReadWhole();

private:
    /// The form as it is declared, before the window changes anything.
    std::unique_ptr<QMainWindow> m_formWindow;
    Ui::KestDetectorUI m_form;
    std::unique_ptr<KestDetectorUI> m_window;
};

void tst_WindowLayout::initTestCase()
{
    m_formWindow = std::make_unique<QMainWindow>();
    m_form.setupUi(m_formWindow.get());
    m_window = std::make_unique<KestDetectorUI>();
}

void tst_WindowLayout::widgetTree_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("parent");

    struct Family
    {
        const char *parent;
        const char *className;
        QStringList names;
    };
    const Family families[] = {
        {"centralWidget", "QWidget", {"wgProgress", "wgResult", "wgLog"}},
        {"centralWidget", "QToolButton", {"tbStart"}},
        {"wgProgress", "QLabel", {"lbCurrComponent", "lbCurrCheckItem"}},
        {"wgProgress", "RingsProgressbar", {"barTotal", "barCurrent"}},
        {"wgResult", "QLabel", {"lbCameraStatus"}},
        {"wgResult", "QGroupBox", {"groupBox_3"}},
        {"groupBox_3",
         "QLabel",
         {"lbCamera", "lbCamera_", "lbGimbal", "lbGimbal_", "lbBattery", "lbBattery_", "lbTFCard", "lbTFCard_",
          "lbLens", "lbLens_", "lbFan", "lbFan_", "lbKeyBoard", "lbKeyBoard_", "lbVoice", "lbVoice_", "lbPcba",
          "lbPcba_"}},
        {"wgLog", "QGroupBox", {"groupBox", "groupBox_2"}},
        {"groupBox",
         "QCheckBox",
         {"cbCamera", "cbGimbal", "cbBattery", "cbTFCard", "cbLens", "cbFan", "cbKeyBoard", "cbVoice", "cbPCBA",
          "cbLoadLog"}},
        {"groupBox", "QWidget", {"widget"}},
        {"widget", "QLabel", {"lbSavePath"}},
        {"widget", "QToolButton", {"tbSavePath", "tbChooseAll", "tbNotChooseAll"}},
        {"groupBox_2", "QTableWidget", {"twCheckedLog"}},
        {"statusBar", "QLabel", {"lbWifiName", "lbWifiPassword", "lbMacAddress", "lbConnectState"}},
    };
    for (const Family &family : families) {
        for (const QString &name : family.names) {
            QTest::newRow(qPrintable(name))
                << QString::fromLatin1(family.className) << QString::fromLatin1(family.parent);
        }
    }
}

void tst_WindowLayout::widgetTree()
{
    QFETCH(const QString, className);
    QFETCH(const QString, parent);
    const QList<QWidget *> named = m_window->findChildren<QWidget *>(QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(named.size(), 1);
    QCOMPARE(QString::fromLatin1(named.first()->metaObject()->className()), className);
    QCOMPARE(named.first()->parentWidget()->objectName(), parent);
}

void tst_WindowLayout::layouts_data()
{
    QTest::addColumn<QString>("className");
    QTest::addColumn<QString>("owner"); // the widget that it lays out, or the layout that it lies in
    QTest::addColumn<QStringList>("boxes");

    const QString grid = QStringLiteral("QGridLayout");
    const QString row = QStringLiteral("QHBoxLayout");
    const QStringList none;
    QTest::newRow("gridLayout") << grid << "centralWidget" << none;
    QTest::newRow("gridLayout_2") << grid << "groupBox" << none;
    QTest::newRow("gridLayout_3") << grid << "groupBox_2" << none;
    QTest::newRow("gridLayout_4") << grid << "wgProgress" << none;
    QTest::newRow("gridLayout_5") << grid << "wgLog" << none;
    QTest::newRow("gridLayout_6") << grid << "wgResult" << none;
    QTest::newRow("gridLayout_7") << grid << "groupBox_3" << none;
    QTest::newRow("gridLayout_8") << grid << "widget" << none;
    QTest::newRow("horizontalLayout") << row << "gridLayout_2"
                                      << QStringList{"cbCamera", "cbGimbal", "cbBattery", "cbTFCard", "cbLens"};
    QTest::newRow("horizontalLayout_2") << row << "gridLayout_2"
                                        << QStringList{"cbFan", "cbKeyBoard", "cbVoice", "cbPCBA", "cbLoadLog"};
    QTest::newRow("horizontalLayout_3") << row << "gridLayout_2" << QStringList{"widget"};
}

void tst_WindowLayout::layouts()
{
    QFETCH(const QString, className);
    QFETCH(const QString, owner);
    QFETCH(const QStringList, boxes);
    const auto *layout = m_window->findChild<QLayout *>(QString::fromLatin1(QTest::currentDataTag()));
    QVERIFY(layout != nullptr);
    QCOMPARE(QString::fromLatin1(layout->metaObject()->className()), className);
    QCOMPARE(layout->parent()->objectName(), owner);
    QStringList found;
    for (int i = 0; i < layout->count() && !boxes.isEmpty(); ++i) {
        found.append(layout->itemAt(i)->widget()->objectName());
    }
    QCOMPARE(found, boxes);
}

void tst_WindowLayout::stretches()
{
    const auto *grid = m_window->findChild<QGridLayout *>(QStringLiteral("gridLayout_4"));
    QList<int> rows;
    for (int i = 0; i < grid->rowCount(); ++i) {
        rows.append(grid->rowStretch(i));
    }
    QList<int> columns;
    for (int i = 0; i < grid->columnCount(); ++i) {
        columns.append(grid->columnStretch(i));
    }
    QCOMPARE(rows, (QList<int>{3, 20, 3, 20, 3, 4, 4, 3}));
    QCOMPARE(columns, (QList<int>{1, 11, 1}));
    QCOMPARE(m_window->minimumSize(), QSize(800, 600));
}

void tst_WindowLayout::formTexts_data()
{
    QTest::addColumn<QString>("text");

    const char *const rows[][2] = {
        {"lbCurrComponent", "Current unit:Camera"},
        {"lbCurrCheckItem", "Current item:Camera"},
        {"lbCameraStatus", "NA"},
        {"groupBox_3", "Component test result:"},
        {"lbCamera_", "Camera"},
        {"lbGimbal_", "Gimbal"},
        {"lbBattery_", "Battery"},
        {"lbTFCard_", "TF Card"},
        {"lbLens_", "Lens"},
        {"lbFan_", "Fan"},
        {"lbKeyBoard_", "Button"},
        {"lbVoice_", "Audio"},
        {"lbPcba_", "PCBA"},
        {"tbStart", "Start"},
        {"groupBox", "Select inspection unit"},
        {"cbCamera", "Camera"},
        {"cbGimbal", "Gimbal"},
        {"cbBattery", "Battery"},
        {"cbTFCard", "TF Card"},
        {"cbLens", "Lens"},
        {"cbFan", "Fan"},
        {"cbKeyBoard", "Button"},
        {"cbVoice", "Audio"},
        {"cbPCBA", "PCBA"},
        {"cbLoadLog", "Log"},
        {"lbSavePath", "Path:"},
        {"tbSavePath", "select save path"},
        {"tbChooseAll", "Select All"},
        {"tbNotChooseAll", "Unselect All"},
        {"groupBox_2", "Event log"},
    };
    for (const auto &row : rows) {
        QTest::newRow(row[0]) << QString::fromUtf8(row[1]);
    }
}

void tst_WindowLayout::formTexts()
{
    QFETCH(const QString, text);
    QCOMPARE(textOf(find(*m_formWindow, QString::fromLatin1(QTest::currentDataTag()))), text);
    QCOMPARE(m_formWindow->windowTitle(), QStringLiteral("Kest自检工具V1.0.0"));
}

void tst_WindowLayout::formTicks_data()
{
    QTest::addColumn<bool>("ticked");

    for (const char *name : {"cbCamera", "cbGimbal", "cbBattery", "cbTFCard", "cbLens", "cbPCBA", "cbLoadLog"}) {
        QTest::newRow(name) << true;
    }
    for (const char *name : {"cbFan", "cbKeyBoard", "cbVoice"}) {
        QTest::newRow(name) << false;
    }
}

void tst_WindowLayout::formTicks()
{
    QFETCH(const bool, ticked);
    QCOMPARE(m_formWindow->findChild<QCheckBox *>(QString::fromLatin1(QTest::currentDataTag()))->isChecked(), ticked);
}

void tst_WindowLayout::styles_data()
{
    QTest::addColumn<QString>("style");

    const char *const rows[][2] = {
        {"wgProgress", panelStyle},
        {"wgResult", panelStyle},
        {"wgLog", panelStyle},
        {"lbCurrComponent", "color: rgb(53, 53, 53);"},
        {"lbCurrCheckItem", "color: rgb(53, 53, 53);"},
        {"lbCameraStatus", "background-color: rgb(220, 220, 220);\ncolor: rgb(20, 20, 20);"},
        {"tbStart", "background-color: rgb(231, 231, 231);"},
        {"twCheckedLog", "color: rgb(53, 53, 53);"},
        {"lbCamera", notTestedStyle},
        {"lbGimbal", notTestedStyle},
        {"lbBattery", notTestedStyle},
        {"lbTFCard", notTestedStyle},
        {"lbLens", notTestedStyle},
        {"lbFan", notTestedStyle},
        {"lbKeyBoard", notTestedStyle},
        {"lbVoice", notTestedStyle},
        {"lbPcba", notTestedStyle},
    };
    for (const auto &row : rows) {
        QTest::newRow(row[0]) << QString::fromLatin1(row[1]);
    }
}

void tst_WindowLayout::styles()
{
    QFETCH(const QString, style);
    const QString name = QString::fromLatin1(QTest::currentDataTag());
    QCOMPARE(find(*m_formWindow, name)->styleSheet(), style);
    QCOMPARE(find(*m_window, name)->styleSheet(), style);
}

void tst_WindowLayout::fonts_data()
{
    QTest::addColumn<QString>("family");
    QTest::addColumn<int>("points"); // 0: the application's
    QTest::addColumn<int>("alignment");

    const int centred = Qt::AlignCenter;
    QTest::newRow("lbCurrComponent") << QStringLiteral("等线") << 11 << centred;
    QTest::newRow("lbCurrCheckItem") << QStringLiteral("等线") << 11 << centred;
    QTest::newRow("lbCameraStatus") << QStringLiteral("黑体") << 60 << centred;
    QTest::newRow("groupBox_3") << QStringLiteral("等线") << 0 << static_cast<int>(Qt::AlignLeft);
}

void tst_WindowLayout::fonts()
{
    QFETCH(const QString, family);
    QFETCH(const int, points);
    QFETCH(const int, alignment);
    const QWidget *widget = find(*m_window, QString::fromLatin1(QTest::currentDataTag()));
    QCOMPARE(widget->font().family(), family);
    QVERIFY(widget->font().bold());
    if (points != 0) {
        QCOMPARE(widget->font().pointSize(), points);
    }
    QCOMPARE(widget->property("alignment").toInt() & alignment, alignment);
}

void tst_WindowLayout::texts_data()
{
    QTest::addColumn<QString>("text");

    QTest::newRow("lbSavePath") << QStringLiteral("Path:") + QCoreApplication::applicationDirPath();
    QTest::newRow("lbCameraStatus") << QStringLiteral("NA");
    QTest::newRow("lbCurrComponent") << QStringLiteral("Current unit:Camera");
    QTest::newRow("lbCurrCheckItem") << QStringLiteral("Current item:Camera");
    QTest::newRow("lbWifiName") << QStringLiteral("Wifi:  ");
    QTest::newRow("lbWifiPassword") << QStringLiteral("Password:  ");
    QTest::newRow("lbMacAddress") << QStringLiteral("Mac:  ");
    QTest::newRow("lbConnectState") << QStringLiteral("Connect State:  ");
}

void tst_WindowLayout::texts()
{
    QFETCH(const QString, text);
    QCOMPARE(textOf(find(*m_window, QString::fromLatin1(QTest::currentDataTag()))), text);
    QCOMPARE(m_window->windowTitle(), QStringLiteral("KestDetector_V1.0.3"));
    QCOMPARE(m_window->findChild<RingsProgressbar *>(QStringLiteral("barTotal"))->text(), QStringLiteral("Total:0%"));
    QCOMPARE(m_window->findChild<RingsProgressbar *>(QStringLiteral("barCurrent"))->text(),
             QStringLiteral("Current:0%"));
}

void tst_WindowLayout::plainTexts_data()
{
    QTest::addColumn<QString>("name");

    for (const char *name : {"lbWifiName", "lbWifiPassword", "lbMacAddress", "lbConnectState", "lbSavePath",
                             "lbCurrComponent", "lbCurrCheckItem"}) {
        QTest::newRow(name) << QString::fromLatin1(name);
    }
}

void tst_WindowLayout::plainTexts()
{
    QFETCH(const QString, name);
    QCOMPARE(m_window->findChild<QLabel *>(name)->textFormat(), Qt::PlainText);
}

void tst_WindowLayout::eventLogTable()
{
    const auto *table = m_window->findChild<QTableWidget *>(QStringLiteral("twCheckedLog"));
    QCOMPARE(table->rowCount(), 0);
    QCOMPARE(table->columnCount(), 3);
    const char *const headers[] = {"1", "2", "3"};
    for (int column = 0; column < 3; ++column) {
        QCOMPARE(table->horizontalHeaderItem(column)->text(), QString::fromLatin1(headers[column]));
        QCOMPARE(table->horizontalHeader()->sectionResizeMode(column), QHeaderView::Stretch);
    }
}

void tst_WindowLayout::statusBarOrder()
{
    m_window->resize(1920, 1080);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    int right = 0;
    for (const char *name : {"lbWifiName", "lbWifiPassword", "lbMacAddress", "lbConnectState"}) {
        const auto *label = m_window->findChild<QLabel *>(QString::fromLatin1(name));
        QVERIFY2(label->x() >= right, name);
        right = label->geometry().right();
        QCOMPARE(static_cast<int>(label->alignment()), static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter));
        QVERIFY(label->minimumWidth() > 0);
    }
    m_window->hide();
}

void tst_WindowLayout::statusLabelsKeepRoomForTheirCaption_data()
{
    QTest::addColumn<QString>("caption");

    QTest::newRow("lbWifiName") << QStringLiteral("Wifi:");
    QTest::newRow("lbWifiPassword") << QStringLiteral("Password:");
    QTest::newRow("lbMacAddress") << QStringLiteral("Mac:");
    QTest::newRow("lbConnectState") << QStringLiteral("Connect State:");
}

void tst_WindowLayout::statusLabelsKeepRoomForTheirCaption()
{
    QFETCH(const QString, caption);
    const auto *label = m_window->findChild<QLabel *>(QString::fromLatin1(QTest::currentDataTag()));
    const QLabel bare(caption);
    QCOMPARE(label->minimumSize(), bare.sizeHint());
    QCOMPARE(label->alignment(), Qt::AlignLeft | Qt::AlignVCenter);
}

void tst_WindowLayout::icons_data()
{
    QTest::addColumn<QString>("path");

    for (const char *name : {"OK.jpg", "NG.jpg", "War.png", "NA1.jpg", "NA.jpg", "bg0.jpg"}) {
        QTest::newRow(name) << QStringLiteral(":/icon/") + QLatin1String(name);
    }
}

void tst_WindowLayout::icons()
{
    QFETCH(const QString, path);
    const QImage image(path);
    QVERIFY(!image.isNull());
    QVERIFY(image.width() >= 160 && image.height() >= 160);
}

void tst_WindowLayout::iconsDifferWithoutColour()
{
    const QStringList files{"OK.jpg", "NG.jpg", "War.png", "NA1.jpg"};
    for (int a = 0; a < files.size(); ++a) {
        for (int b = a + 1; b < files.size(); ++b) {
            const QImage first = grayIcon(files.at(a));
            const QImage second = grayIcon(files.at(b));
            int different = 0;
            for (int i = 0; i < 40 * 40; ++i) {
                const QPoint at(i % 40, i / 40);
                if (qAbs(qGray(first.pixel(at)) - qGray(second.pixel(at))) > 60) {
                    ++different;
                }
            }
            QVERIFY2(different > 160, qPrintable(files.at(a) + QLatin1Char(' ') + files.at(b)));
        }
    }
}

void tst_WindowLayout::nothingIsClippedOrOverlaps_data()
{
    QTest::addColumn<QSize>("size");

    QTest::newRow("smallest window") << QSize(800, 600);
    QTest::newRow("small notebook") << QSize(1366, 768);
    QTest::newRow("full HD") << QSize(1920, 1080);
    QTest::newRow("upright screen") << QSize(1080, 1920);
}

void tst_WindowLayout::nothingIsClippedOrOverlaps()
{
    QFETCH(const QSize, size);
    m_window->resize(size);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    QCOMPARE(m_window->size(), size);
    QTRY_COMPARE(misplaced(m_window->centralWidget()).join(QLatin1Char('\n')), QString());
}

void tst_WindowLayout::fitsIntoASmallScreen_data()
{
    QTest::addColumn<QSize>("room");

    QTest::newRow("800 x 600") << QSize(800, 600);
    QTest::newRow("800 x 600 with a title bar") << QSize(800, 572);
    QTest::newRow("1366 x 768 at 150 %, with a title bar") << QSize(910, 484);
    QTest::newRow("1920 x 1080 at 200 %, with a title bar") << QSize(960, 512);
}

void tst_WindowLayout::fitsIntoASmallScreen()
{
    QFETCH(const QSize, room);
    KestDetectorUI window;
    window.fitInto(room);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    QCOMPARE(window.size().boundedTo(room), window.size());
    for (const char *name : {"statusBar", "tbSavePath", "tbStart", "cbLoadLog", "lbPcba_", "lbCameraStatus"}) {
        const QWidget *widget = find(window, QString::fromLatin1(name));
        const QRect place(widget->mapTo(&window, QPoint()), widget->size());
        QVERIFY2(window.rect().contains(place), name);
        QVERIFY2(widget->visibleRegion().boundingRect() == widget->rect(), name);
    }
}

void tst_WindowLayout::largeScreenChangesNothing()
{
    KestDetectorUI window;
    window.resize(960, 680);
    window.fitInto(QSize(1920, 1040));
    QCOMPARE(window.size(), QSize(960, 680));
    QCOMPARE(window.minimumSize(), QSize(800, 600));
}

void tst_WindowLayout::shrinksBackFromFullHd()
{
    m_window->show();
    const auto *icon = m_window->findChild<QLabel *>(QStringLiteral("lbCamera"));
    m_window->resize(1920, 1080);
    QTRY_COMPARE(icon->size(), QSize(72, 72));
    m_window->resize(2560, 1440);
    QTRY_COMPARE(m_window->height(), 1440);
    QCOMPARE(icon->size(), QSize(72, 72));
    m_window->resize(800, 600);
    QTRY_COMPARE(icon->size(), QSize(40, 40));
    QCOMPARE(m_window->size(), QSize(800, 600));
    QTRY_COMPARE(misplaced(m_window->centralWidget()).join(QLatin1Char('\n')), QString());
}

void tst_WindowLayout::ringsFitTheirWidgets()
{
    m_window->resize(800, 600);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    for (const char *name : {"barTotal", "barCurrent"}) {
        const auto *ring = m_window->findChild<RingsProgressbar *>(QString::fromLatin1(name));
        const int hollow = qMin(ring->width(), ring->height()) - 40;
        const QFontMetrics metrics(QFont(QStringLiteral("Microsoft YaHei"), 15, QFont::Bold));
        QVERIFY2(metrics.horizontalAdvance(QStringLiteral("Current:100%")) <= hollow, name);
    }
}

void tst_WindowLayout::longTextsDoNotWidenTheWindow()
{
    m_window->resize(800, 600);
    m_window->show();
    QVERIFY(QTest::qWaitForWindowExposed(m_window.get()));
    const QString longText = QString(2000, QLatin1Char('W'));
    m_window->setSavePath(QLatin1Char('/') + longText);
    m_window->slot_setWifiName(longText);
    m_window->slot_setWifiPassWord(longText);
    m_window->slot_setMacAddress(longText);
    m_window->slot_showCurrentComponent(longText);
    m_window->slot_showCurrentCheckItem(longText);
    QCoreApplication::processEvents();
    QCOMPARE(m_window->size(), QSize(800, 600));
    QVERIFY(m_window->minimumSizeHint().width() <= 800);
    QTRY_COMPARE(misplaced(m_window->centralWidget()).join(QLatin1Char('\n')), QString());
    QCOMPARE(textOf(find(*m_window, QStringLiteral("lbSavePath"))), QStringLiteral("Path:/") + longText);
}

void tst_WindowLayout::refusedStartIsReadWhole_data()
{
    QTest::addColumn<QSize>("room");
    QTest::addColumn<QString>("wifiName");
    QTest::addColumn<bool>("hasResults");
    QTest::addColumn<bool>("whole");

    const QString plain = QStringLiteral("Camera-5F2A");
    QTest::newRow("800 x 600") << QSize(800, 600) << plain << false << true;
    QTest::newRow("800 x 600 with a title bar") << QSize(800, 572) << plain << false << true;
    QTest::newRow("800 x 600, the longest WiFi name")
        << QSize(800, 600) << QString(32, QLatin1Char('W')) << false << true;
    QTest::newRow("800 x 600, results of an earlier run") << QSize(800, 600) << plain << true << true;
    // Here every other line may be taken, and the tool tip has to do.
    QTest::newRow("1366 x 768 at 150 %, with a title bar") << QSize(910, 484) << plain << false << false;
}

void tst_WindowLayout::refusedStartIsReadWhole()
{
    QFETCH(const QSize, room);
    QFETCH(const QString, wifiName);
    QFETCH(const bool, hasResults);
    QFETCH(const bool, whole);
    Notices &notices = KestDetectorFace::Get()->notices;
    KestDetectorUI window;
    notices.withdraw(Notice::Kind::Settings);
    window.fitInto(room);
    window.show();
    QVERIFY(QTest::qWaitForWindowExposed(&window));
    window.slot_setWifiName(wifiName);
    window.slot_setWifiPassWord(QString(8, QChar(0x2022)));
    window.slot_setConnectStatus(true);
    const QWidget *bar = find(window, QStringLiteral("statusBar"));
    const int height = bar->height();
    const QSize size = window.size();
    if (hasResults) {
        notices.tell(Notices::results(QStringLiteral("/home/operator/results/log/2026-11-22_60601F0A5F2A")));
    }
    notices.tell(Notices::notStarted(
        {QStringLiteral("no component is ticked"), QStringLiteral("the camera's MAC address is unknown")}));

    const auto *text = window.findChild<QLabel *>(QStringLiteral("lbNotices"));
    const auto isWhole = [&] {
        const QRect column(0, 0, text->width(), QWIDGETSIZE_MAX);
        const QSize needed = text->fontMetrics().boundingRect(column, Qt::TextWordWrap, text->text()).size();
        return text->contentsRect().size().expandedTo(needed) == text->contentsRect().size();
    };
    const auto clipped = [&] {
        QStringList names;
        for (const char *name : {"statusBar", "lbNotices", "lbConnectState", "tbSavePath", "tbStart", "lbPcba_"}) {
            const QWidget *widget = find(window, QString::fromLatin1(name));
            if (widget->visibleRegion().boundingRect() != widget->rect()) {
                names.append(QLatin1String(name));
            }
        }
        return names;
    };
    QTRY_VERIFY(text->text().endsWith(QLatin1String("MAC address is unknown")));
    QCoreApplication::processEvents(); // the layouts follow
    QTRY_VERIFY(isWhole() || !whole);
    QTRY_COMPARE(clipped(), QStringList());
    QCOMPARE(window.size(), size);
    window.resize(size + QSize(40, 0)); // everything is laid out anew, whether the notice asked for it or not
    QTRY_COMPARE(clipped(), QStringList());
    QVERIFY(isWhole() || !whole);

    notices.withdrawRun();
    QTRY_COMPARE(bar->height(), height);
}

QTEST_MAIN(tst_WindowLayout)
#include "tst_WindowLayout.moc"
