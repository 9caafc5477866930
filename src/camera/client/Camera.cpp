#include "camera/client/Camera.h"

#include "camera/client/recordCodec.h"
#include "camera/client/UDPTransciever.h"
#include "camera/codec/PacketCodec.h"
#include "detector/readers/systemInfo.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/networkHelpers.h"
#include "detector/store/Settings.h"
#include "telnet/session/TelnetInteractiveFace.h"

#include <algorithm>
#include <arpa/inet.h>
#include <chrono>
#include <QDebug>

/// One command of the camera: who answers it and how long the answer may take.
struct DeviceCommand
{
    protocol::Device receiver;
    protocol::Command command;
    int waitSeconds;
};

/// A block of the camera's sensor EEPROM.
struct EepromBlock
{
    int address;
    int length;
};

namespace {
using protocol::Device;

namespace deviceCommand {
constexpr DeviceCommand registerPC{Device::Camera, protocol::command::registerPC, 1};
constexpr DeviceCommand Ping{Device::Camera, protocol::command::Ping, 2};
constexpr DeviceCommand getCameraState{Device::Camera, protocol::command::getCameraState, 2};
constexpr DeviceCommand getTFCardStatus{Device::Camera, protocol::command::getTFCardStatus, 2};
constexpr DeviceCommand getTFCardUsedStatus{Device::Camera, protocol::command::getTFCardUsedStatus, 2};
constexpr DeviceCommand getBatteryInfo{Device::Battery, protocol::command::getBatteryInfo, 2};
constexpr DeviceCommand getBatteryStatus{Device::Battery, protocol::command::getBatteryStatus, 2};
constexpr DeviceCommand getBatteryEscFactoryCheck{Device::Battery, protocol::command::getBatteryEscFactoryCheck, 3};
constexpr DeviceCommand getGimbalDeviceInfo{Device::Gimbal, protocol::command::getGimbalDeviceInfo, 2};
constexpr DeviceCommand fetchGimbalState{Device::Gimbal, protocol::command::fetchGimbalState, 2};
constexpr DeviceCommand getGimbalESCDevicesCheck{Device::Gimbal, protocol::command::getGimbalESCDevicesCheck, 2};
constexpr DeviceCommand setGimbalAnguVeloPosi{Device::Gimbal, protocol::command::setGimbalAnguVeloPosi, 3};
constexpr DeviceCommand setGimbalFactoryCheck{Device::Gimbal, protocol::command::setGimbalFactoryCheck, 2};
constexpr DeviceCommand ReadEEPROM{Device::Camera, protocol::command::ReadEEPROM, 3};
} // namespace deviceCommand

namespace eeprom {
constexpr EepromBlock sfr{5824, 720};
constexpr EepromBlock sfrCrc{6544, 4};
constexpr EepromBlock sfrMark{6846, 2};
constexpr EepromBlock macula{6848, 606};
constexpr EepromBlock maculaCrc{7454, 4};
constexpr EepromBlock maculaMark{7870, 2};
constexpr EepromBlock awb{7872, 124};
constexpr EepromBlock awbCrc{7996, 4};
constexpr EepromBlock awbMark{8126, 2};
constexpr EepromBlock focusMark{4203, 2};
constexpr EepromBlock factoryMark{8162, 2};
} // namespace eeprom

constexpr std::chrono::milliseconds supervisorPause(1000);
constexpr std::chrono::milliseconds exitLimit(2000);
constexpr int toleratedPings = 2; // the next failure in a row drops the link

KestDataPacket makeRequest(const DeviceCommand &command, std::initializer_list<unsigned> payload)
{
    KestDataPacket packet;
    packet.len = static_cast<std::uint16_t>(static_cast<std::size_t>(protocol::headerSize) + payload.size());
    packet.sender = static_cast<std::uint8_t>(Device::Pc);
    packet.receiver = static_cast<std::uint8_t>(command.receiver);
    packet.cmdSet = static_cast<std::uint8_t>(command.command.set);
    packet.cmdId = command.command.id;
    std::transform(payload.begin(), payload.end(), packet.data.begin(),
                   [](unsigned value) { return static_cast<std::uint8_t>(value & 0xFFU); });
    return packet;
}

QString subnetPrefix(const QString &address)
{
    return address.left(address.lastIndexOf(QLatin1Char('.')) + 1);
}
} // namespace

std::shared_ptr<Camera> Camera::Get()
{
    static const std::shared_ptr<Camera> ptr(new Camera);
    return ptr;
}

Camera::Camera()
{
    m_eeprom.record = std::make_shared<EEPromBuf>();
    m_supervisor = std::make_shared<std::thread>(&Camera::func, this);
}

Camera::~Camera()
{
    abandonRequests();
    killThread();
}

void Camera::killThread()
{
    if (!m_supervisor->joinable()) {
        return;
    }
    {
        std::unique_lock<std::mutex> lock(m_loopMutex);
        running = false;
        exited = false;
        m_loopCond.notify_all();
        m_loopCond.wait_for(lock, exitLimit, [this] { return exited; });
    }
    m_supervisor->join();
}

void Camera::abandonRequests()
{
    m_abandoned = true;
    for (Completion *slot : std::initializer_list<Completion *>{
             &m_registerPC, &m_ping, &m_batteryEscFactoryCheck, &m_gimbalAnguVeloPosi, &m_gimbalFactoryCheck,
             &m_cameraState, &m_tfCardStatus, &m_tfCardUsedStatus, &m_batteryInfo, &m_batteryStatus,
             &m_gimbalDeviceInfo, &m_gimbalState, &m_gimbalEscDevicesCheck, &m_eeprom}) {
        // Passing through the mutex makes sure that a waiter has either seen the flag or is already waiting.
        {
            const std::lock_guard<std::mutex> lock(slot->mutex);
        }
        slot->cond.notify_all();
    }
}

// Requests

template <class Take>
int Camera::request(Completion &slot, KestDataPacket &packet, int waitSeconds, Take take)
{
    const std::lock_guard<std::mutex> oneRequest(slot.oneRequest);
    // Held from before the send until the wait begins, or a reply within microseconds would notify nobody.
    std::unique_lock<std::mutex> lock(slot.mutex);
    const std::uint64_t before = slot.completions;
    if (!m_abandoned) {
        UDPTransciever::Get()->sendPacket(packet);
        slot.cond.wait_for(lock, std::chrono::seconds(waitSeconds),
                           [&] { return m_abandoned || slot.completions != before; });
    }
    if (slot.completions == before) {
        return requestResult::noReply;
    }
    if (slot.result == requestResult::success) {
        take();
    }
    return slot.result;
}

template <class Record>
int Camera::query(RecordCompletion<Record> &slot, const DeviceCommand &command, Record *out)
{
    KestDataPacket packet = makeRequest(command, {});
    return request(slot, packet, command.waitSeconds, [&] { *out = slot.record; });
}

int Camera::order(Completion &slot, const DeviceCommand &command, std::initializer_list<unsigned> payload)
{
    KestDataPacket packet = makeRequest(command, payload);
    return request(slot, packet, command.waitSeconds, [] {});
}

void Camera::getPacket4AppIpReport(unsigned long ip, unsigned short port, KestDataPacket *packet)
{
    const auto address = static_cast<unsigned>(ip);
    *packet = makeRequest(deviceCommand::registerPC,
                          {address >> 24U, address >> 16U, address >> 8U, address, port, unsigned{port} >> 8U});
}

int Camera::registerPC(const QString &ip)
{
    KestDataPacket packet;
    getPacket4AppIpReport(inet_addr(qPrintable(ip)), protocol::pcPort, &packet);
    return request(m_registerPC, packet, deviceCommand::registerPC.waitSeconds, [] {});
}

int Camera::Ping()
{
    return order(m_ping, deviceCommand::Ping);
}

int Camera::getCameraState(CameraStatus *status)
{
    return query(m_cameraState, deviceCommand::getCameraState, status);
}

int Camera::getTFCardStatus(TFCardStatus *status)
{
    return query(m_tfCardStatus, deviceCommand::getTFCardStatus, status);
}

int Camera::getTFCardUsedStatus(TFCardUsedStatus *status)
{
    return query(m_tfCardUsedStatus, deviceCommand::getTFCardUsedStatus, status);
}

int Camera::getBatteryInfo(BatteryInfo *info)
{
    return query(m_batteryInfo, deviceCommand::getBatteryInfo, info);
}

int Camera::getBatteryStatus(BatteryStatus *status)
{
    return query(m_batteryStatus, deviceCommand::getBatteryStatus, status);
}

int Camera::getBatteryEscFactoryCheck(BatteryCheckResult *check)
{
    const int result = order(m_batteryEscFactoryCheck, deviceCommand::getBatteryEscFactoryCheck);
    if (result == requestResult::success) {
        check->result = 0;
    }
    return result;
}

int Camera::getGimbalDeviceInfo(GimbalDeviceInfo *info)
{
    return query(m_gimbalDeviceInfo, deviceCommand::getGimbalDeviceInfo, info);
}

int Camera::fetchGimbalState(GimbalState *state)
{
    return query(m_gimbalState, deviceCommand::fetchGimbalState, state);
}

int Camera::getGimbalESCDevicesCheck(GimbalESCDevicesCheck *check)
{
    return query(m_gimbalEscDevicesCheck, deviceCommand::getGimbalESCDevicesCheck, check);
}

int Camera::setGimbalAnguVeloPosi(GimbalAnguVeloPosi values)
{
    const auto &v = values.fields;
    qDebug() << "setGimbalAnguVeloPosi" << v[0] << v[1] << v[2] << v[3] << v[4] << v[5];
    const auto high = [](std::uint16_t value) { return unsigned{value} >> 8U; };
    return order(
        m_gimbalAnguVeloPosi, deviceCommand::setGimbalAnguVeloPosi,
        {v[0], high(v[0]), v[1], high(v[1]), v[2], high(v[2]), v[3], high(v[3]), v[4], high(v[4]), v[5], high(v[5])});
}

int Camera::setGimbalFactoryCheck(unsigned char mode)
{
    return order(m_gimbalFactoryCheck, deviceCommand::setGimbalFactoryCheck, {mode});
}

int Camera::ReadEEPROM(int address, int length, EEPromBuf *buffer)
{
    const auto from = static_cast<unsigned>(address);
    const auto count = static_cast<unsigned>(length);
    KestDataPacket packet = makeRequest(deviceCommand::ReadEEPROM, {from, from >> 8U, count, count >> 8U});
    return request(m_eeprom, packet, deviceCommand::ReadEEPROM.waitSeconds, [&] {
        const EEPromBuf &reply = *m_eeprom.record;
        buffer->resize(reply.length());
        std::copy_n(reply.data(), reply.length(), buffer->data());
    });
}

// EEPROM blocks

int Camera::readBlock(const EepromBlock &block, EEPromBuf *buffer)
{
    const int result = ReadEEPROM(block.address, block.length, buffer);
    return result == requestResult::success && buffer->length() != block.length ? requestResult::wrongSize : result;
}

int Camera::readBlockLength(const EepromBlock &block, int *length)
{
    EEPromBuf buffer;
    const int result = readBlock(block, &buffer);
    if (result == requestResult::success) {
        *length = block.length;
    }
    return result;
}

int Camera::readWord(const EepromBlock &block, unsigned int *word)
{
    EEPromBuf buffer;
    const int result = readBlock(block, &buffer);
    if (result == requestResult::success) {
        const std::uint8_t *bytes = buffer.data();
        *word = bytes[0] | unsigned{bytes[1]} << 8U | unsigned{bytes[2]} << 16U | unsigned{bytes[3]} << 24U;
    }
    return result;
}

bool Camera::readMark(const EepromBlock &block, int *status)
{
    EEPromBuf buffer;
    *status = ReadEEPROM(block.address, block.length, &buffer);
    return *status == requestResult::success && buffer.length() == block.length && buffer.data()[0] == 'K' &&
           buffer.data()[1] == 'O';
}

int Camera::eepromReadSfr(unsigned char *, int *length)
{
    return readBlockLength(eeprom::sfr, length);
}

int Camera::eepromReadMacula(unsigned char *, int *length)
{
    return readBlockLength(eeprom::macula, length);
}

int Camera::eepromReadAwb(unsigned char *, int *length)
{
    return readBlockLength(eeprom::awb, length);
}

int Camera::eepromReadSfrCrc(unsigned int *crc)
{
    return readWord(eeprom::sfrCrc, crc);
}

int Camera::eepromReadMaculaCrc(unsigned int *crc)
{
    return readWord(eeprom::maculaCrc, crc);
}

int Camera::eepromReadAwbCrc(unsigned int *crc)
{
    return readWord(eeprom::awbCrc, crc);
}

bool Camera::signatureCheckSfr(int *status)
{
    return readMark(eeprom::sfrMark, status);
}

bool Camera::signatureCheckMacula(int *status)
{
    return readMark(eeprom::maculaMark, status);
}

bool Camera::signatureCheckAwb(int *status)
{
    return readMark(eeprom::awbMark, status);
}

bool Camera::signatureCheckFocus(int *status)
{
    return readMark(eeprom::focusMark, status);
}

bool Camera::sensorEEPromFactoryCheck(int *status)
{
    return readMark(eeprom::factoryMark, status);
}

// Completions, on the receive thread

template <class Read>
void Camera::complete(Completion &slot, int code, Read read)
{
    {
        const std::lock_guard<std::mutex> lock(slot.mutex);
        slot.result = code != requestResult::success ? code : read();
        slot.done = true;
        ++slot.completions;
    }
    slot.cond.notify_all();
}

template <class Record>
void Camera::completeRecord(RecordCompletion<Record> &slot, int code, const std::uint8_t *data, int length)
{
    complete(slot, code, [&]() -> int {
        if (length != wireSize<Record>) {
            return requestResult::wrongSize;
        }
        decode(data, &slot.record);
        return requestResult::success;
    });
}

void Camera::completeWithoutData(Completion &slot, int code, int length)
{
    complete(slot, code, [&]() -> int { return length != 0 ? requestResult::wrongSize : requestResult::success; });
}

void Camera::registerPC_Notify(int code, const std::uint8_t *, int)
{
    complete(m_registerPC, code, [] { return requestResult::success; });
}

void Camera::getBatteryEscFactoryCheck_Notigy(int code, const std::uint8_t *, int)
{
    complete(m_batteryEscFactoryCheck, code, [] { return requestResult::success; });
}

void Camera::Ping_Notify(int code, const std::uint8_t *, int length)
{
    completeWithoutData(m_ping, code, length);
}

void Camera::setGimbalAnguVeloPosi_Notify(int code, const std::uint8_t *, int length)
{
    completeWithoutData(m_gimbalAnguVeloPosi, code, length);
}

void Camera::setGimbalFactoryCheck_Notify(int code, const std::uint8_t *, int length)
{
    completeWithoutData(m_gimbalFactoryCheck, code, length);
}

void Camera::getCameraState_Notify(int code, const std::uint8_t *data, int length)
{
    completeRecord(m_cameraState, code, data, length);
    if (code == requestResult::success && length == wireSize<CameraStatus>) {
        CameraStatus status;
        decode(data, &status);
        qDebug().noquote() << "iCurStatus" << QString::number(status.iCurStatus, 16);
    }
}

void Camera::getTFCardStatus_Notify(int code, const std::uint8_t *data, int length)
{
    completeRecord(m_tfCardStatus, code, data, length);
}

void Camera::getTFCardUsedStatus_Notify(int code, const std::uint8_t *data, int length)
{
    completeRecord(m_tfCardUsedStatus, code, data, length);
}

void Camera::getBatteryInfo_Notify(int code, const std::uint8_t *data, int length)
{
    completeRecord(m_batteryInfo, code, data, length);
}

void Camera::getBatteryStatus_Notify(int code, const std::uint8_t *data, int length)
{
    completeRecord(m_batteryStatus, code, data, length);
}

void Camera::getGimbalDeviceInfo_Notify(int code, const std::uint8_t *data, int length)
{
    completeRecord(m_gimbalDeviceInfo, code, data, length);
}

void Camera::fetchGimbalState_Notify(int code, const std::uint8_t *data, int length)
{
    completeRecord(m_gimbalState, code, data, length);
}

void Camera::getGimbalESCDevicesCheck_Notify(int code, const std::uint8_t *data, int length)
{
    completeRecord(m_gimbalEscDevicesCheck, code, data, length);
}

void Camera::ReadEEPROM_Notify(int code, const std::uint8_t *data, int length)
{
    complete(m_eeprom, code, [&]() -> int {
        constexpr int countSize = 2;
        constexpr int longest = protocol::maxPayloadSize - protocol::replyDataOffset;
        if (length < countSize || length > longest || (data[0] | data[1] << 8) + countSize != length) {
            return requestResult::wrongSize;
        }
        EEPromBuf &buffer = *m_eeprom.record;
        buffer.resize(length - countSize);
        std::copy_n(data + countSize, length - countSize, buffer.data());
        return requestResult::success;
    });
}

// Supervisor

void Camera::func()
{
    std::unique_lock<std::mutex> lock(m_loopMutex);
    while (running) {
        lock.unlock();
        if (connected) {
            pingOnce();
        } else {
            connectOnce();
        }
        lock.lock();
        m_loopCond.wait_for(lock, supervisorPause, [this] { return !running; });
    }
    exited = true;
    m_loopCond.notify_all();
}

void Camera::connectOnce()
{
    KestDetectorFace *face = KestDetectorFace::Get();
    const Settings settings = readSettings(settingsPath());
    const QList<SettingProblem> problems = settings.addressProblems();
    for (const SettingProblem &problem : problems) {
        qWarning().noquote() << "option.ini:" << problem.text();
    }
    const QString usbPrefix = subnetPrefix(settings.usb);
    const QString wifiPrefix = subnetPrefix(settings.wifi);

    const IpInfo own = getIPInfo(usbPrefix, wifiPrefix);
    const QString pcAddress = !own.first.isEmpty() ? own.first : own.second;
    QString cameraAddress;
    if (!settings.usb.isEmpty() && pcAddress.contains(usbPrefix)) {
        cameraAddress = settings.usb;
    } else if (!settings.wifi.isEmpty() && pcAddress.contains(wifiPrefix)) {
        cameraAddress = settings.wifi;
    }
    face->pcAddress = pcAddress;
    face->cameraAddress = cameraAddress;

    const int outcome = pcAddress.isEmpty() ? requestResult::noPcAddress : registerPC(pcAddress);
    qDebug() << "sConnectIp" << cameraAddress << pcAddress << outcome;
    if (outcome != requestResult::success) {
        publishLink(false);
        return;
    }
    TelnetInteractiveFace::Get()->telnetConnectToHost();
    connected = true;
    publishLink(true);
    getSystemInformation();
}

void Camera::pingOnce()
{
    if (Ping() == requestResult::success) {
        m_failedPings = 0;
        return;
    }
    if (m_abandoned) {
        return; // the program is closing: the camera may well be there, and the last log needs its MAC address
    }
    if (m_failedPings < toleratedPings) {
        ++m_failedPings;
        return;
    }
    m_failedPings = 0;
    connected = false;
    KestDetectorFace *face = KestDetectorFace::Get();
    face->wifiName = QString();
    face->wifiPassword = QString();
    face->macAddress = QString();
    emit face->signal_setWifiName(QString());
    emit face->signal_setWifiPassWord(QString());
    emit face->signal_setMacAddress(QString());
    publishLink(false);
}

void Camera::publishLink(bool isConnected)
{
    KestDetectorFace *face = KestDetectorFace::Get();
    face->connectState = isConnected;
    emit face->signal_setConnectStatus(isConnected);
}

void Camera::getSystemInformation()
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
