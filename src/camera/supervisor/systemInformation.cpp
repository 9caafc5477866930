#include "camera/supervisor/systemInformation.h"

#include "detector/readers/systemInfo.h"
#include "detector/store/KestDetectorFace.h"

#include <optional>

namespace {
/// What the shell has told; empty where the call failed.
struct SystemInformation
{
    std::optional<WifiInfo> wifi;
    std::optional<QString> macAddress;

    bool isComplete() const { return wifi && macAddress; }
};

SystemInformation readSystemInformation()
{
    SystemInformation information;
    int verdict = 0;
    WifiInfo wifi;
    getSysWifiInfo(&verdict, wifi.ssid, wifi.password);
    if (verdict == 0) {
        information.wifi = wifi;
    }
    QString mac;
    getSysMacAddress(&verdict, mac);
    if (verdict == 0) {
        information.macAddress = mac;
    }
    return information;
}

void showWifi(const WifiInfo &wifi)
{
    KestDetectorFace *face = KestDetectorFace::Get();
    face->wifiName = wifi.ssid;
    face->wifiPassword = wifi.password;
    emit face->signal_setWifiName(wifi.ssid);
    emit face->signal_setWifiPassWord(wifi.password);
}

void showMacAddress(const QString &macAddress)
{
    KestDetectorFace *face = KestDetectorFace::Get();
    face->run.noteCamera(macAddress);
    emit face->signal_setMacAddress(macAddress);
}
} // namespace

bool publishSystemInformation()
{
    const SystemInformation information = readSystemInformation();
    showWifi(information.wifi.value_or(WifiInfo()));
    showMacAddress(information.macAddress.value_or(QString()));
    return information.isComplete();
}

bool refreshSystemInformation()
{
    const SystemInformation information = readSystemInformation();
    if (information.wifi) {
        showWifi(*information.wifi);
    }
    if (information.macAddress) {
        showMacAddress(*information.macAddress);
    }
    return information.isComplete();
}
