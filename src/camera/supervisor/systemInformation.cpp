#include "camera/supervisor/systemInformation.h"

#include "detector/readers/systemInfo.h"
#include "detector/store/KestDetectorFace.h"

void publishSystemInformation()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    int verdict = 0;
    QString ssid;
    QString password;
    getSysWifiInfo(&verdict, ssid, password);
    QString mac;
    getSysMacAddress(&verdict, mac);
    face->wifiName = ssid;
    face->wifiPassword = password;
    emit face->signal_setWifiName(ssid);
    emit face->signal_setWifiPassWord(password);
    emit face->signal_setMacAddress(mac);
}
