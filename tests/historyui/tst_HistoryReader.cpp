#include "history/query/questions.h"
#include "historyui/reader/HistoryReader.h"
#include "lineOfRuns.h"

#include <QFile>
#include <QSemaphore>
#include <QSignalSpy>
#include <QTemporaryDir>
#include <QTest>

using Topic = HistoryReader::Topic;

class tst_HistoryReader : public QObject
{
    Q_OBJECT

private slots:
    void initTestCase();
    void answersOnAnotherThread();
    void laterQuestionMakesEarlierStale();
    void withdrawnIsNotAnswered();
    void urgentTopicComesFirst();
    void endsWithQuestionsLeft();
    void trouble_data();
    void trouble();
    void opensAnewAfterTrouble();

private:
    StoreAddress address() const { return StoreAddress::file(m_folder.filePath(QStringLiteral("history.sqlite"))); }

    QTemporaryDir m_folder;
};

namespace {
/// Keeps the reader's thread busy until it is let go.
class Hold
{
public:
    explicit Hold(HistoryReader *reader)
    {
        reader->ask(
            Topic::Index,
            [this](Store &) {
                m_isHeld.release();
                m_letGo.acquire();
                return std::optional<int>(0);
            },
            [](int) {});
        m_isHeld.acquire();
    }
    void letGo() { m_letGo.release(); }

private:
    QSemaphore m_isHeld;
    QSemaphore m_letGo;
};

auto gives(int value)
{
    return [value](Store &) { return std::optional<int>(value); };
}
} // namespace

void tst_HistoryReader::initTestCase()
{
    QCOMPARE(storeLine(address().path, 0, 3), QString());
}

void tst_HistoryReader::answersOnAnotherThread()
{
    HistoryReader reader(address());
    QThread *asked = nullptr;
    QThread *answered = nullptr;
    int runs = 0;
    reader.ask(
        Topic::Search,
        [&asked](Store &store) {
            asked = QThread::currentThread();
            return findRuns(store, {});
        },
        [&](const QList<RunSummary> &found) {
            answered = QThread::currentThread();
            runs = found.size();
        });
    QTRY_COMPARE(runs, 3);
    QVERIFY(asked != QThread::currentThread());
    QCOMPARE(answered, QThread::currentThread());
}

void tst_HistoryReader::laterQuestionMakesEarlierStale()
{
    HistoryReader reader(address());
    Hold hold(&reader);
    QList<int> answers;
    int asked = 0;
    for (const int value : {1, 2, 3}) {
        reader.ask(
            Topic::Search,
            [&asked, value](Store &) {
                ++asked;
                return std::optional<int>(value);
            },
            [&answers](int answer) { answers.append(answer); });
    }
    hold.letGo();
    QTRY_COMPARE(answers, QList<int>{3});
    QCOMPARE(asked, 1);
    // A question that is under way when the next one comes is not answered either.
    reader.ask(Topic::Search, gives(4), [&answers](int answer) { answers.append(answer); });
    QTest::qSleep(20);
    reader.ask(Topic::Search, gives(5), [&answers](int answer) { answers.append(answer); });
    QTRY_COMPARE(answers, (QList<int>{3, 5}));
}

void tst_HistoryReader::withdrawnIsNotAnswered()
{
    HistoryReader reader(address());
    Hold hold(&reader);
    QList<int> answers;
    reader.ask(Topic::Run, gives(1), [&answers](int answer) { answers.append(answer); });
    reader.ask(Topic::Unit, gives(2), [&answers](int answer) { answers.append(answer); });
    reader.withdraw(Topic::Run);
    hold.letGo();
    QTRY_COMPARE(answers, QList<int>{2});
}

void tst_HistoryReader::urgentTopicComesFirst()
{
    HistoryReader reader(address());
    Hold hold(&reader);
    QList<int> answers;
    reader.ask(Topic::Statistics, gives(3), [&answers](int answer) { answers.append(answer); });
    reader.ask(Topic::Rows, gives(2), [&answers](int answer) { answers.append(answer); });
    reader.ask(Topic::Search, gives(1), [&answers](int answer) { answers.append(answer); });
    hold.letGo();
    QTRY_COMPARE(answers, (QList<int>{1, 2, 3}));
}

void tst_HistoryReader::endsWithQuestionsLeft()
{
    int asked = 0;
    int answered = 0;
    {
        QSemaphore isUnderWay;
        QSemaphore letGo;
        HistoryReader reader(address());
        const auto slow = [&](Store &) {
            ++asked;
            isUnderWay.release();
            letGo.acquire();
            return std::optional<int>(1);
        };
        reader.ask(Topic::Index, slow, [&answered](int) { ++answered; });
        isUnderWay.acquire();
        reader.ask(Topic::Rows, slow, [&answered](int) { ++answered; });
        reader.end();
        letGo.release(2); // also for one that must not be asked
    }
    QCOMPARE(asked, 1);
    QCoreApplication::processEvents();
    QCOMPARE(answered, 0);
}

void tst_HistoryReader::trouble_data()
{
    QTest::addColumn<QByteArray>("content");
    QTest::addColumn<bool>("isThere");
    QTest::addColumn<int>("kind");

    QTest::newRow("missing") << QByteArray() << false << static_cast<int>(StoreError::Kind::Missing);
    QTest::newRow("damaged") << QByteArray(8192, 'x') << true << static_cast<int>(StoreError::Kind::Damaged);
}

void tst_HistoryReader::trouble()
{
    QFETCH(const QByteArray, content);
    QFETCH(const bool, isThere);
    QFETCH(const int, kind);
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("other.sqlite"));
    if (isThere) {
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly));
        file.write(content);
    }
    HistoryReader reader(StoreAddress::file(path));
    int failed = -1;
    QString text;
    connect(&reader, &HistoryReader::failed, this, [&](const StoreError &error) {
        failed = static_cast<int>(error.kind);
        text = error.text;
    });
    bool isAnswered = false;
    reader.ask(Topic::Search, gives(1), [&isAnswered](int) { isAnswered = true; });
    QTRY_COMPARE(failed, kind);
    QVERIFY2(text.contains(path), qUtf8Printable(text));
    QVERIFY(!isAnswered);
    QCOMPARE(QFile::exists(path), isThere); // nothing is made by looking
}

void tst_HistoryReader::opensAnewAfterTrouble()
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(QStringLiteral("later.sqlite"));
    HistoryReader reader(StoreAddress::file(path));
    QSignalSpy failed(&reader, &HistoryReader::failed);
    reader.ask(Topic::Search, gives(1), [](int) {});
    QTRY_COMPARE(failed.count(), 1);
    QCOMPARE(storeLine(path, 0, 5), QString());
    int runs = 0;
    reader.ask(
        Topic::Search, [](Store &store) { return findRuns(store, {}); },
        [&runs](const QList<RunSummary> &found) { runs = found.size(); });
    QTRY_COMPARE(runs, 5);
}

QTEST_GUILESS_MAIN(tst_HistoryReader)
#include "tst_HistoryReader.moc"
