#include "ftp/FtpAccessManager.h"

#include "ftp/FtpReply.h"

FtpAccessManager::FtpAccessManager(QObject *parent) : QNetworkAccessManager(parent) {}

QNetworkReply *FtpAccessManager::createRequest(Operation operation, const QNetworkRequest &request, QIODevice *outgoing)
{
    if (operation == GetOperation && request.url().scheme() == QLatin1String("ftp")) {
        return new FtpReply(request, this);
    }
    return QNetworkAccessManager::createRequest(operation, request, outgoing);
}
