#pragma once

#include <QNetworkAccessManager>

/// Qt's network access manager with an FTP of its own.
///
/// Qt's FTP keeps the connection and about 100 KiB of an interrupted transfer for the rest of the process, does not
/// notice a server that closes in the middle, and takes a server that knows no HELP for one that has sent an empty
/// file.
class FtpAccessManager : public QNetworkAccessManager
{
    Q_OBJECT
    Q_DISABLE_COPY(FtpAccessManager)

public:
    explicit FtpAccessManager(QObject *parent);

protected:
    QNetworkReply *createRequest(Operation operation, const QNetworkRequest &request, QIODevice *outgoing) override;
};
