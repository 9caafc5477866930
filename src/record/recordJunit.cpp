#include "record/recordJunit.h"

#include "record/limitText.h"
#include "record/plainText.h"
#include "record/recordNames.h"

#include <algorithm>
#include <QList>
#include <QPair>
#include <QXmlStreamWriter>

namespace {
struct Fault
{
    const char *element; ///< "failure" or "error"
    QString type;
    QString message;
    QString text;
};

struct TestCase
{
    QString name;
    std::chrono::microseconds duration;
    std::optional<Fault> fault;
};

struct Suite
{
    QString name;
    std::chrono::microseconds duration;
    QList<QPair<QString, QString>> properties;
    QList<TestCase> cases;
    QString output;
};

QString seconds(std::chrono::microseconds duration)
{
    return QString::number(std::chrono::duration<double>(duration).count(), 'f', 6);
}

/// A token of the schema: with something in it, and without blanks at its ends.
QString token(const QString &text, const QString &otherwise)
{
    const QString trimmed = text.simplified();
    return trimmed.isEmpty() ? otherwise : trimmed;
}

QString withUnit(const QString &value, const QString &unit)
{
    return unit.isEmpty() ? value : value + QLatin1Char(' ') + unit;
}

/// A warning fails the run where its component takes it for a failure.
bool fails(const ItemRecord &item, const ComponentRecord &component)
{
    return item.verdict == Verdict::Failed ||
           (item.verdict == Verdict::Warning && component.verdict == Verdict::Failed);
}

Suite componentSuite(const ComponentRecord &component)
{
    Suite suite{component.key, component.duration, {}, {}, {}};
    suite.properties.append({QStringLiteral("verdict"), nameOf(component.verdict)});
    for (const ItemRecord &item : component.items) {
        for (const Measurement &measurement : item.measurements) {
            QString value = withUnit(valueText(measurement.value), measurement.unit);
            if (measurement.limit) {
                value += QStringLiteral(" (%1)").arg(limitText(*measurement.limit));
            }
            suite.properties.append({item.key + QLatin1Char('/') + measurement.name, value});
        }
        for (const CollectedFile &file : item.files) {
            suite.properties.append({item.key + QLatin1Char('/') + file.name,
                                     QStringLiteral("%1 B, SHA-256 %2").arg(QString::number(file.size), file.sha256)});
        }
        suite.output += QStringLiteral("[%1] %2\n").arg(item.key, nameOf(item.verdict)) + item.message + item.detail;
        if (item.verdict == Verdict::NotTested) {
            continue;
        }
        TestCase testCase{item.key, item.duration, {}};
        if (fails(item, component)) {
            testCase.fault = Fault{"failure", nameOf(item.verdict), item.message.trimmed(), item.message + item.detail};
        }
        suite.cases.append(testCase);
    }
    return suite;
}

Suite runSuite(const RunRecord &run)
{
    Suite suite{QStringLiteral("run"), run.duration, {}, {}, {}};
    suite.properties = {
        {QStringLiteral("schema"), QString::number(RunRecord::schemaVersion)},
        {QStringLiteral("id"), run.id.toString(QUuid::WithoutBraces)},
        {QStringLiteral("programVersion"), run.programVersion},
        {QStringLiteral("location"), run.station.location},
        {QStringLiteral("operator"), run.operatorName},
        {QStringLiteral("batch"), run.batch},
        {QStringLiteral("serial"), run.serial},
        {QStringLiteral("camera.mac"), run.camera.mac},
        {QStringLiteral("camera.wifiName"), run.camera.wifiName},
        {QStringLiteral("camera.link"), run.camera.link},
        {QStringLiteral("camera.firmware"), run.camera.firmware},
        {QStringLiteral("begin"), timeText(run.begin)},
        {QStringLiteral("end"), timeText(run.end)},
        {QStringLiteral("outcome"), nameOf(run.outcome)},
    };
    TestCase outcome{QStringLiteral("outcome"), run.duration, {}};
    if (run.outcome != Outcome::Passed) {
        const char *element = run.outcome == Outcome::Failed ? "failure" : "error";
        outcome.fault = Fault{element, nameOf(run.outcome), run.reason, run.reason};
    }
    suite.cases.append(outcome);
    return suite;
}

class Report
{
public:
    explicit Report(const QList<RunRecord> &runs) : m_xml(&m_bytes)
    {
        m_xml.setAutoFormatting(true);
        m_xml.writeStartDocument();
        m_xml.writeStartElement(QStringLiteral("testsuites"));
        for (const RunRecord &run : runs) {
            add(runSuite(run), run);
            for (const ComponentRecord &component : run.components) {
                add(componentSuite(component), run);
            }
        }
        m_xml.writeEndDocument();
    }

    const QByteArray &bytes() const { return m_bytes; }

private:
    void attribute(const char *name, const QString &value)
    {
        m_xml.writeAttribute(QLatin1String(name), xmlText(value));
    }

    /// A reader takes a bare carriage return for a line break.
    void characters(const QString &text)
    {
        const QStringList parts = xmlText(text).split(QLatin1Char('\r'));
        m_xml.writeCharacters(parts.constFirst());
        for (int i = 1; i < parts.size(); ++i) {
            m_xml.writeEntityReference(QStringLiteral("#13"));
            m_xml.writeCharacters(parts.at(i));
        }
    }

    void element(const char *name, const QString &text)
    {
        m_xml.writeStartElement(QLatin1String(name));
        characters(text);
        m_xml.writeEndElement();
    }

    void add(const Suite &suite, const RunRecord &run)
    {
        m_xml.writeStartElement(QStringLiteral("testsuite"));
        attribute("name", suite.name);
        attribute("package", QStringLiteral("KestDetector"));
        attribute("id", QString::number(m_suites++));
        attribute("timestamp", run.begin.toString(QStringLiteral("yyyy-MM-ddTHH:mm:ss")));
        attribute("hostname", token(run.station.name, QStringLiteral("localhost")));
        attribute("tests", QString::number(suite.cases.size()));
        attribute("failures", count(suite, "failure"));
        attribute("errors", count(suite, "error"));
        attribute("time", seconds(suite.duration));
        m_xml.writeStartElement(QStringLiteral("properties"));
        for (const auto &property : suite.properties) {
            m_xml.writeEmptyElement(QStringLiteral("property"));
            attribute("name", property.first);
            attribute("value", property.second);
        }
        m_xml.writeEndElement();
        for (const TestCase &testCase : suite.cases) {
            add(testCase, suite.name);
        }
        element("system-out", suite.output);
        element("system-err", {});
        m_xml.writeEndElement();
    }

    void add(const TestCase &testCase, const QString &suite)
    {
        m_xml.writeStartElement(QStringLiteral("testcase"));
        attribute("name", testCase.name);
        attribute("classname", suite);
        attribute("time", seconds(testCase.duration));
        if (testCase.fault) {
            m_xml.writeStartElement(QLatin1String(testCase.fault->element));
            attribute("type", testCase.fault->type);
            attribute("message", testCase.fault->message);
            characters(testCase.fault->text);
            m_xml.writeEndElement();
        }
        m_xml.writeEndElement();
    }

    static QString count(const Suite &suite, const char *element)
    {
        const auto found = std::count_if(suite.cases.begin(), suite.cases.end(), [element](const TestCase &testCase) {
            return testCase.fault && QLatin1String(testCase.fault->element) == QLatin1String(element);
        });
        return QString::number(found);
    }

    int m_suites = 0;
    QByteArray m_bytes;
    QXmlStreamWriter m_xml;
};
} // namespace

QByteArray toJunit(const QList<RunRecord> &runs)
{
    return Report(runs).bytes();
}

QByteArray toJunit(const RunRecord &run)
{
    return toJunit(QList<RunRecord>{run});
}
