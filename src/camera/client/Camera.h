#pragma once

#include "camera/client/Completion.h"
#include "camera/client/deviceCommands.h"
#include "camera/client/EEPromBuf.h"
#include "camera/client/records.h"
#include "camera/client/Reply.h"
#include "camera/client/SparingWarning.h"
#include "camera/codec/requestResult.h"
#include "camera/supervisor/LinkCommands.h"

#include <algorithm>
#include <atomic>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <memory>
#include <mutex>
#include <QString>
#include <QtGlobal>
#include <utility>
#include <vector>

class Supervisor;
struct EepromBlock;
struct KestDataPacket;

/// Client of the camera's command service: one blocking method for each command, and the owner of the supervisor that
/// keeps the link up.
///
/// Requests may be made from any thread but the GUI thread and the receive thread. They block for at most the
/// command's wait time, return a `requestResult` or the camera's code, and fill their output only on success.
/// A late reply to an earlier request completes the next wait for the same command: sequence numbers are not compared.
/// Where the safeguards have queries sent again, one query may bring several replies: those whose sequence number says
/// that they belong to an earlier query are dropped, so that no answer about one block of the EEPROM passes for
/// another's.
class Camera final : public LinkCommands
{
    Q_DISABLE_COPY(Camera)

public:
    /// Gives a frame its number and sends it; the bytes sent, or -1. Called from every thread that makes requests.
    using SendPacket = std::function<int(KestDataPacket &packet)>;

    /// The process-wide client, which talks through the process-wide `UDPTransciever`.
    static std::shared_ptr<Camera> Get();

    /// A client whose requests go out through `send`, and whose replies come in through `handleReply`. It has no
    /// supervisor: nobody but its owner makes requests, and nobody changes the facade's addresses.
    explicit Camera(SendPacket send);
    ~Camera();

    /// Stops and joins the supervisor thread. Further calls do nothing.
    void killThread();
    /// No reply can come any more: pending and later requests return 118 at once. From any thread.
    void abandonRequests();
    bool requestsAbandoned() const override { return m_abandoned; }
    /// The run under way has been stopped: its present request returns 118 at once, and so does each one until the next
    /// run. From any thread.
    void heedStop();

    /// Hands a reply to the completion handler of its command. A command that the station does not know is told in the
    /// debug output. On the receive thread.
    void handleReply(const Reply &reply);

    /// Asks the camera for a record. The command needs no more than its row of `deviceCommands.h`; the methods below
    /// are those that others know by name. `payload`: the request's bytes.
    template <class Record>
    int query(const RecordCommand<Record> &row, Record *out, std::initializer_list<unsigned> payload = {})
    {
        RecordCompletion<Record> &slot = completion(row);
        return request(slot, payload, [&] { *out = slot.record; });
    }

    int registerPC(const QString &ip) override;
    int Ping() override;
    int getCameraState(CameraStatus *status);
    int getTFCardStatus(TFCardStatus *status);
    int getTFCardUsedStatus(TFCardUsedStatus *status);
    int getBatteryInfo(BatteryInfo *info);
    int getBatteryStatus(BatteryStatus *status);
    int getBatteryEscFactoryCheck(BatteryCheckResult *check);
    int getGimbalDeviceInfo(GimbalDeviceInfo *info);
    int fetchGimbalState(GimbalState *state);
    int getGimbalESCDevicesCheck(GimbalESCDevicesCheck *check);
    int setGimbalAnguVeloPosi(GimbalAnguVeloPosi values);
    /// `mode`: 1 roll, 2 pitch, 3 yaw.
    int setGimbalFactoryCheck(unsigned char mode);
    /// Reads `length` bytes of the sensor EEPROM from `address` on.
    int ReadEEPROM(int address, int length, EEPromBuf *buffer);

    // Block readers: 0 and the block's length when the whole block could be read, -1 when it came back shorter or
    // longer. The byte buffer is left untouched.
    int eepromReadSfr(unsigned char *buffer, int *length);
    int eepromReadMacula(unsigned char *buffer, int *length);
    int eepromReadAwb(unsigned char *buffer, int *length);
    // Stored checksum words, little-endian; -1 on a short read.
    int eepromReadSfrCrc(unsigned int *crc);
    int eepromReadMaculaCrc(unsigned int *crc);
    int eepromReadAwbCrc(unsigned int *crc);
    // Whether the two-byte mark "KO" stands at the block's signature address; `status` takes the read's result.
    bool signatureCheckSfr(int *status);
    bool signatureCheckMacula(int *status);
    bool signatureCheckAwb(int *status);
    bool signatureCheckFocus(int *status);
    bool sensorEEPromFactoryCheck(int *status);

    /// Reads WiFi name, passphrase and MAC address over the shell, and publishes them: see `publishSystemInformation`.
    void getSystemInformation();
    /// Fills a registration request. Its payload is `ip` from the most significant byte down, then `port` low byte
    /// first. `registerPC` passes what `inet_addr` gives, so that on a little-endian PC the address travels reversed.
    static void getPacket4AppIpReport(unsigned long ip, unsigned short port, KestDataPacket *packet);

    // Completion handlers, called on the receive thread: result byte, reply data and its length.
    void registerPC_Notify(int code, const std::uint8_t *data, int length);
    void Ping_Notify(int code, const std::uint8_t *data, int length);
    void getCameraState_Notify(int code, const std::uint8_t *data, int length);
    void getTFCardStatus_Notify(int code, const std::uint8_t *data, int length);
    void getTFCardUsedStatus_Notify(int code, const std::uint8_t *data, int length);
    void getBatteryInfo_Notify(int code, const std::uint8_t *data, int length);
    void getBatteryStatus_Notify(int code, const std::uint8_t *data, int length);
    void getBatteryEscFactoryCheck_Notigy(int code, const std::uint8_t *data, int length);
    void getGimbalDeviceInfo_Notify(int code, const std::uint8_t *data, int length);
    void fetchGimbalState_Notify(int code, const std::uint8_t *data, int length);
    void getGimbalESCDevicesCheck_Notify(int code, const std::uint8_t *data, int length);
    void setGimbalAnguVeloPosi_Notify(int code, const std::uint8_t *data, int length);
    void setGimbalFactoryCheck_Notify(int code, const std::uint8_t *data, int length);
    void ReadEEPROM_Notify(int code, const std::uint8_t *data, int length);

private:
    Camera();

    /// The completion of a row, made with the row's first request or reply. From any thread.
    Completion &completion(const DeviceCommand &row) { return completionOf<Completion>(row); }
    template <class Record>
    RecordCompletion<Record> &completion(const RecordCommand<Record> &row)
    {
        return completionOf<RecordCompletion<Record>>(row);
    }
    template <class Kind, class Row>
    Kind &completionOf(const Row &row);
    /// Null for a command that has no completion yet. From any thread.
    Completion *completionFor(protocol::Command command);

    /// Sends a request, a query perhaps more than once, and waits for its completion; on success `take` copies the
    /// reply while it is guarded.
    int request(Completion &slot, KestDataPacket &packet, const std::function<void()> &take);
    int request(Completion &slot, std::initializer_list<unsigned> payload, const std::function<void()> &take);
    int order(const DeviceCommand &row, std::initializer_list<unsigned> payload = {});
    /// Whoever waits looks again whether to give up.
    void wakeWaiters();
    /// Gives the packet a number, notes it and sends it. With the slot's mutex held.
    void send(Completion &slot, KestDataPacket &packet);

    int readBlock(const EepromBlock &block, EEPromBuf *buffer);
    int readBlockLength(const EepromBlock &block, int *length);
    int readWord(const EepromBlock &block, unsigned int *word);
    bool readMark(const EepromBlock &block, int *status);

    const SendPacket m_send;
    std::atomic<bool> m_abandoned{false};
    SparingWarning m_sendFailed;
    SparingWarning m_unknownReply;

    std::mutex m_completionsMutex; ///< guards the list; taken before a completion's own
    std::vector<std::unique_ptr<Completion>> m_completions;

    std::unique_ptr<Supervisor> m_supervisor; ///< last: it makes requests when everything else is in place
};

template <class Kind, class Row>
Kind &Camera::completionOf(const Row &row)
{
    const std::lock_guard<std::mutex> lock(m_completionsMutex);
    const auto found = std::find_if(m_completions.begin(), m_completions.end(),
                                    [&row](const auto &entry) { return &entry->command == &row; });
    if (found != m_completions.end()) {
        return static_cast<Kind &>(**found);
    }
    auto made = std::make_unique<Kind>(row);
    Kind &entry = *made;
    m_completions.push_back(std::move(made));
    return entry;
}
