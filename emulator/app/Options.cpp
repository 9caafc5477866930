#include "emulator/app/Options.h"

#include <QCommandLineParser>

namespace emulator {

namespace {
void readPort(const QCommandLineParser &parser, const QString &option, quint16 &port, QString &error)
{
    if (!parser.isSet(option)) {
        return;
    }
    bool ok = false;
    port = parser.value(option).toUShort(&ok);
    if (!ok || port == 0) {
        error = QStringLiteral("--%1: must be a number from 1 to 65535").arg(option);
    }
}
} // namespace

Options parseOptions(const QStringList &arguments)
{
    QCommandLineParser parser;
    parser.setApplicationDescription(
        QStringLiteral("An emulated camera. SIGUSR1 reboots it, SIGUSR2 takes it out of radio range and back."));
    parser.addHelpOption();
    parser.addVersionOption();
    parser.addOptions({
        {QStringLiteral("address"), QStringLiteral("IPv4 address of all services."), QStringLiteral("ADDR"),
         QStringLiteral("127.0.0.10")},
        {QStringLiteral("scenario"), QStringLiteral("What the camera reports; a healthy one by default."),
         QStringLiteral("FILE")},
        {QStringLiteral("run-dir"),
         QStringLiteral("Folder for the camera's file system, missing or empty; what is made "
                        "in it is removed at the end."),
         QStringLiteral("DIR")},
        {QStringLiteral("ftp-port"), QStringLiteral("TCP port of the FTP server, instead of the scenario's."),
         QStringLiteral("PORT")},
        {QStringLiteral("command-port"), QStringLiteral("UDP port of the command service."), QStringLiteral("PORT"),
         QStringLiteral("9999")},
        {QStringLiteral("shell-port"), QStringLiteral("TCP port of the shell."), QStringLiteral("PORT"),
         QStringLiteral("23")},
        {QStringLiteral("no-shell"), QStringLiteral("Serve no shell.")},
        {QStringLiteral("no-ftp"), QStringLiteral("Serve no FTP.")},
        {QStringLiteral("verbose"), QStringLiteral("Each request and fault on one line of the standard error.")},
    });
    Options options;
    const bool parsed = parser.parse(arguments);
    // Help is given even when the rest of the line is wrong.
    if (parsed && (parser.isSet(QStringLiteral("help")) || parser.isSet(QStringLiteral("version")))) {
        parser.process(arguments);
    }
    if (!parsed) {
        options.error = parser.errorText();
    } else if (!parser.positionalArguments().isEmpty()) {
        options.error = QStringLiteral("unexpected argument: %1").arg(parser.positionalArguments().constFirst());
    }
    options.address = QHostAddress(parser.value(QStringLiteral("address")));
    if (options.address.protocol() != QAbstractSocket::IPv4Protocol) {
        options.error = QStringLiteral("--address: must be an IPv4 address");
    }
    readPort(parser, QStringLiteral("command-port"), options.commandPort, options.error);
    readPort(parser, QStringLiteral("shell-port"), options.shellPort, options.error);
    readPort(parser, QStringLiteral("ftp-port"), options.ftpPort, options.error);
    options.scenarioFile = parser.value(QStringLiteral("scenario"));
    options.runDirectory = parser.value(QStringLiteral("run-dir"));
    options.shell = !parser.isSet(QStringLiteral("no-shell"));
    options.ftp = !parser.isSet(QStringLiteral("no-ftp"));
    options.verbose = parser.isSet(QStringLiteral("verbose"));
    return options;
}

} // namespace emulator
