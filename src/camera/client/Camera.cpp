#include "camera/client/Camera.h"

#include "camera/client/UDPTransciever.h"
#include "camera/client/WireReader.h"
#include "camera/codec/PacketCodec.h"
#include "camera/supervisor/Supervisor.h"
#include "camera/supervisor/systemInformation.h"
#include "detector/store/KestDetectorFace.h"
#include "detector/store/requestTally.h"
#include "platform/networkAddress.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <QDebug>
#include <utility>

/// A block of the camera's sensor EEPROM.
struct EepromBlock
{
    int address;
    int length;
};

namespace {
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

constexpr int sendingsOfAQuery = 4; // one for each quarter of its wait time

KestDataPacket makeRequest(const DeviceCommand &command, std::initializer_list<unsigned> payload)
{
    KestDataPacket packet;
    packet.len = static_cast<std::uint16_t>(static_cast<std::size_t>(protocol::headerSize) + payload.size());
    packet.sender = static_cast<std::uint8_t>(protocol::Device::Pc);
    packet.receiver = static_cast<std::uint8_t>(command.receiver);
    packet.cmdSet = static_cast<std::uint8_t>(command.command.set);
    packet.cmdId = command.command.id;
    std::transform(payload.begin(), payload.end(), packet.data.begin(),
                   [](unsigned value) { return static_cast<std::uint8_t>(value & 0xFFU); });
    return packet;
}

QString nameOf(protocol::Command command)
{
    return QString::fromStdString(getCmdSetName(static_cast<std::uint8_t>(command.set)) + uint162hexstr(command.id));
}

/// The completion handlers that are known by name. A reply to any other command goes straight to its completion.
struct NamedHandler
{
    protocol::Command command;
    void (Camera::*handler)(int code, const std::uint8_t *data, int length);
};
constexpr std::array namedHandlers = {
    NamedHandler{deviceCommand::registerPC.command, &Camera::registerPC_Notify},
    NamedHandler{deviceCommand::Ping.command, &Camera::Ping_Notify},
    NamedHandler{deviceCommand::getCameraState.command, &Camera::getCameraState_Notify},
    NamedHandler{deviceCommand::getTFCardStatus.command, &Camera::getTFCardStatus_Notify},
    NamedHandler{deviceCommand::getTFCardUsedStatus.command, &Camera::getTFCardUsedStatus_Notify},
    NamedHandler{deviceCommand::getBatteryInfo.command, &Camera::getBatteryInfo_Notify},
    NamedHandler{deviceCommand::getBatteryStatus.command, &Camera::getBatteryStatus_Notify},
    NamedHandler{deviceCommand::getBatteryEscFactoryCheck.command, &Camera::getBatteryEscFactoryCheck_Notigy},
    NamedHandler{deviceCommand::getGimbalDeviceInfo.command, &Camera::getGimbalDeviceInfo_Notify},
    NamedHandler{deviceCommand::fetchGimbalState.command, &Camera::fetchGimbalState_Notify},
    NamedHandler{deviceCommand::getGimbalESCDevicesCheck.command, &Camera::getGimbalESCDevicesCheck_Notify},
    NamedHandler{deviceCommand::setGimbalAnguVeloPosi.command, &Camera::setGimbalAnguVeloPosi_Notify},
    NamedHandler{deviceCommand::setGimbalFactoryCheck.command, &Camera::setGimbalFactoryCheck_Notify},
    NamedHandler{deviceCommand::ReadEEPROM.command, &Camera::ReadEEPROM_Notify},
};
} // namespace

std::shared_ptr<Camera> Camera::Get()
{
    static const std::shared_ptr<Camera> ptr(new Camera);
    return ptr;
}

// The transceiver comes with the first request: it takes the camera's address from the facade, where the supervisor
// has put it by then.
Camera::Camera() : Camera([](KestDataPacket &packet) { return UDPTransciever::Get()->sendPacket(packet); })
{
    m_supervisor = std::make_unique<Supervisor>(*this);
}

Camera::Camera(SendPacket send) : m_send(std::move(send)) {}

Camera::~Camera()
{
    abandonRequests();
    killThread();
}

void Camera::killThread()
{
    if (m_supervisor) {
        m_supervisor->stop();
    }
}

Completion *Camera::completionFor(protocol::Command command)
{
    const std::lock_guard<std::mutex> lock(m_completionsMutex);
    const auto found = std::find_if(m_completions.begin(), m_completions.end(),
                                    [&](const auto &entry) { return entry->command.command == command; });
    return found != m_completions.end() ? found->get() : nullptr;
}

void Camera::abandonRequests()
{
    m_abandoned = true;
    wakeWaiters();
}

void Camera::heedStop()
{
    wakeWaiters();
}

void Camera::wakeWaiters()
{
    // A completion that comes into the list later belongs to a request that sees why.
    const std::lock_guard<std::mutex> list(m_completionsMutex);
    for (const auto &slot : m_completions) {
        // Passing through the mutex makes sure that a waiter has either seen the flag or is already waiting.
        {
            const std::lock_guard<std::mutex> lock(slot->mutex);
        }
        slot->cond.notify_all();
    }
}

// Requests

void Camera::send(Completion &slot, KestDataPacket &packet)
{
    if (m_send(packet) < 0) {
        m_sendFailed.tell(QStringLiteral("A request was not sent:") + nameOf(slot.command.command));
    }
    slot.numbers.push_back(packet.seq);
}

int Camera::request(Completion &slot, KestDataPacket &packet, const std::function<void()> &take)
{
    const std::lock_guard<std::mutex> oneRequest(slot.oneRequest);
    // Held from before the send until the wait begins, or a reply within microseconds would notify nobody.
    std::unique_lock<std::mutex> lock(slot.mutex);
    const std::uint64_t before = slot.completions;
    const bool isQuery = slot.command.kind == CommandKind::Query;
    const auto stopped = KestDetectorFace::Get()->run.stopSign();
    const auto givesUp = [&] { return m_abandoned || stopped(); };
    if (!givesUp()) {
        if (slot.numbers.size() > 1 || slot.givenUp) {
            slot.staleNumbers = slot.numbers;
        }
        slot.numbers.clear();
        const int sendings = isQuery && KestDetectorFace::Get()->safeguards().resendsQueries() ? sendingsOfAQuery : 1;
        const auto begin = std::chrono::steady_clock::now();
        for (int sending = 1; sending <= sendings; ++sending) {
            if (sending > 1) {
                noteResentRequest();
            }
            send(slot, packet);
            const auto limit = begin + slot.command.wait * sending / sendings;
            if (slot.cond.wait_until(lock, limit, [&] { return slot.completions != before || givesUp(); })) {
                break;
            }
        }
    }
    slot.givenUp = slot.completions == before && givesUp();
    const int result = slot.completions == before ? requestResult::noReply : slot.result;
    if (result == requestResult::success) {
        take();
    }
    const bool unanswered = result == requestResult::noReply || result == requestResult::wrongSize;
    // An order without an answer may have been carried out: whoever gives it asks afterwards what has come of it.
    if (unanswered && isQuery && !slot.givenUp) {
        noteUnansweredRequest();
    }
    return result;
}

int Camera::request(Completion &slot, std::initializer_list<unsigned> payload, const std::function<void()> &take)
{
    KestDataPacket packet = makeRequest(slot.command, payload);
    return request(slot, packet, take);
}

int Camera::order(const DeviceCommand &row, std::initializer_list<unsigned> payload)
{
    return request(completion(row), payload, [] {});
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
    getPacket4AppIpReport(networkAddress(ip), protocol::pcPort, &packet);
    return request(completion(deviceCommand::registerPC), packet, [] {});
}

int Camera::Ping()
{
    return order(deviceCommand::Ping);
}

int Camera::getCameraState(CameraStatus *status)
{
    return query(deviceCommand::getCameraState, status);
}

int Camera::getTFCardStatus(TFCardStatus *status)
{
    return query(deviceCommand::getTFCardStatus, status);
}

int Camera::getTFCardUsedStatus(TFCardUsedStatus *status)
{
    return query(deviceCommand::getTFCardUsedStatus, status);
}

int Camera::getBatteryInfo(BatteryInfo *info)
{
    return query(deviceCommand::getBatteryInfo, info);
}

int Camera::getBatteryStatus(BatteryStatus *status)
{
    return query(deviceCommand::getBatteryStatus, status);
}

int Camera::getBatteryEscFactoryCheck(BatteryCheckResult *check)
{
    const int result = order(deviceCommand::getBatteryEscFactoryCheck);
    if (result == requestResult::success) {
        check->result = 0;
    }
    return result;
}

int Camera::getGimbalDeviceInfo(GimbalDeviceInfo *info)
{
    return query(deviceCommand::getGimbalDeviceInfo, info);
}

int Camera::fetchGimbalState(GimbalState *state)
{
    return query(deviceCommand::fetchGimbalState, state);
}

int Camera::getGimbalESCDevicesCheck(GimbalESCDevicesCheck *check)
{
    return query(deviceCommand::getGimbalESCDevicesCheck, check);
}

int Camera::setGimbalAnguVeloPosi(GimbalAnguVeloPosi values)
{
    const auto &v = values.fields;
    qDebug() << "setGimbalAnguVeloPosi" << v[0] << v[1] << v[2] << v[3] << v[4] << v[5];
    const auto high = [](std::uint16_t value) { return unsigned{value} >> 8U; };
    return order(deviceCommand::setGimbalAnguVeloPosi, {v[0], high(v[0]), v[1], high(v[1]), v[2], high(v[2]), v[3],
                                                        high(v[3]), v[4], high(v[4]), v[5], high(v[5])});
}

int Camera::setGimbalFactoryCheck(unsigned char mode)
{
    return order(deviceCommand::setGimbalFactoryCheck, {mode});
}

int Camera::ReadEEPROM(int address, int length, EEPromBuf *buffer)
{
    const auto from = static_cast<unsigned>(address);
    const auto count = static_cast<unsigned>(length);
    return query(deviceCommand::ReadEEPROM, buffer, {from, from >> 8U, count, count >> 8U});
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

void Camera::getSystemInformation()
{
    publishSystemInformation();
}

// Completions, on the receive thread

void Camera::handleReply(const Reply &reply)
{
    const auto named = std::find_if(namedHandlers.begin(), namedHandlers.end(),
                                    [&](const NamedHandler &entry) { return entry.command == reply.command; });
    Completion *slot = completionFor(reply.command);
    if (slot != nullptr && slot->isStale(reply.sequence)) {
        return;
    }
    if (named != namedHandlers.end()) {
        (this->*named->handler)(reply.code, reply.data, reply.length);
    } else if (slot != nullptr) {
        slot->complete(reply.code, reply.data, reply.length);
    } else {
        m_unknownReply.tell(QStringLiteral("A reply to a command that is never sent:") + nameOf(reply.command));
    }
}

void Camera::registerPC_Notify(int code, const std::uint8_t *data, int length)
{
    completion(deviceCommand::registerPC).complete(code, data, length);
}

void Camera::Ping_Notify(int code, const std::uint8_t *data, int length)
{
    completion(deviceCommand::Ping).complete(code, data, length);
}

void Camera::getCameraState_Notify(int code, const std::uint8_t *data, int length)
{
    // Told first: when the caller has its answer, the line is there, too.
    if (code == requestResult::success && length == deviceCommand::getCameraState.replySize) {
        CameraStatus status;
        WireReader in(data);
        status.read(in);
        qDebug().noquote() << "iCurStatus" << QString::number(status.iCurStatus, 16);
    }
    completion(deviceCommand::getCameraState).complete(code, data, length);
}

void Camera::getTFCardStatus_Notify(int code, const std::uint8_t *data, int length)
{
    completion(deviceCommand::getTFCardStatus).complete(code, data, length);
}

void Camera::getTFCardUsedStatus_Notify(int code, const std::uint8_t *data, int length)
{
    completion(deviceCommand::getTFCardUsedStatus).complete(code, data, length);
}

void Camera::getBatteryInfo_Notify(int code, const std::uint8_t *data, int length)
{
    completion(deviceCommand::getBatteryInfo).complete(code, data, length);
}

void Camera::getBatteryStatus_Notify(int code, const std::uint8_t *data, int length)
{
    completion(deviceCommand::getBatteryStatus).complete(code, data, length);
}

void Camera::getBatteryEscFactoryCheck_Notigy(int code, const std::uint8_t *data, int length)
{
    completion(deviceCommand::getBatteryEscFactoryCheck).complete(code, data, length);
}

void Camera::getGimbalDeviceInfo_Notify(int code, const std::uint8_t *data, int length)
{
    completion(deviceCommand::getGimbalDeviceInfo).complete(code, data, length);
}

void Camera::fetchGimbalState_Notify(int code, const std::uint8_t *data, int length)
{
    completion(deviceCommand::fetchGimbalState).complete(code, data, length);
}

void Camera::getGimbalESCDevicesCheck_Notify(int code, const std::uint8_t *data, int length)
{
    completion(deviceCommand::getGimbalESCDevicesCheck).complete(code, data, length);
}

void Camera::setGimbalAnguVeloPosi_Notify(int code, const std::uint8_t *data, int length)
{
    completion(deviceCommand::setGimbalAnguVeloPosi).complete(code, data, length);
}

void Camera::setGimbalFactoryCheck_Notify(int code, const std::uint8_t *data, int length)
{
    completion(deviceCommand::setGimbalFactoryCheck).complete(code, data, length);
}

void Camera::ReadEEPROM_Notify(int code, const std::uint8_t *data, int length)
{
    completion(deviceCommand::ReadEEPROM).complete(code, data, length);
}
