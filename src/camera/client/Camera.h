#pragma once

#include "camera/client/EEPromBuf.h"
#include "camera/client/records.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <initializer_list>
#include <memory>
#include <mutex>
#include <QString>
#include <QtGlobal>
#include <thread>

struct DeviceCommand;
struct EepromBlock;
struct KestDataPacket;

/// Result codes of the requests beside the camera's own (1 to 255, texts from `getErrorMsg`).
namespace requestResult {
inline constexpr int success = 0;
inline constexpr int noReply = 118;      ///< no reply within the command's wait time
inline constexpr int wrongSize = -1;     ///< the reply data had the wrong length
inline constexpr int noPcAddress = 9999; ///< supervisor only: no address of the PC lies on the camera's network
} // namespace requestResult

/// Client of the camera's command service: one blocking method for each command, and the supervisor thread that keeps
/// the link up (registers the PC once a second until the camera answers, logs in to the shell, reads WiFi and MAC,
/// then pings once a second and drops the link after the third failed ping in a row).
///
/// Requests may be made from any thread but the GUI thread and the receive thread. They block for at most the
/// command's wait time, return a `requestResult` or the camera's code, and fill their output only on success.
/// A late reply to an earlier request completes the next wait for the same command: sequence numbers are not compared.
class Camera
{
    Q_DISABLE_COPY(Camera)

public:
    static std::shared_ptr<Camera> Get();
    ~Camera();

    /// Stops and joins the supervisor thread. Further calls do nothing.
    void killThread();
    /// No reply can come any more: pending and later requests return 118 at once. From any thread.
    void abandonRequests();
    bool isConnected() const { return connected; }

    int registerPC(const QString &ip);
    int Ping();
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

    /// Reads WiFi name, passphrase and MAC address over the shell and publishes them through the facade's signals.
    void getSystemInformation();
    /// Fills a registration request with an address (in host order) and a port.
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
    /// One command's completion: written by the receive thread, waited for by one caller. `mutex` guards all of it.
    struct Completion
    {
        std::int32_t result = 0;
        bool done = false;
        std::mutex mutex;
        std::condition_variable cond;
        std::uint64_t completions = 0; ///< tells a completion from a spurious wake-up
        std::mutex oneRequest;         ///< one caller at a time
    };
    /// The completion of a command whose reply carries data: a copy of the last good reply.
    template <class Record>
    struct RecordCompletion : Completion
    {
        Record record{};
    };

    Camera();

    void func();
    void connectOnce();
    void pingOnce();
    static void publishLink(bool isConnected);

    /// Sends a request and waits for its completion; on success `take` copies the reply while it is guarded.
    template <class Take>
    int request(Completion &slot, KestDataPacket &packet, int waitSeconds, Take take);
    template <class Record>
    int query(RecordCompletion<Record> &slot, const DeviceCommand &command, Record *out);
    int order(Completion &slot, const DeviceCommand &command, std::initializer_list<unsigned> payload = {});
    template <class Read>
    static void complete(Completion &slot, int code, Read read);
    template <class Record>
    static void completeRecord(RecordCompletion<Record> &slot, int code, const std::uint8_t *data, int length);
    static void completeWithoutData(Completion &slot, int code, int length);

    int readBlock(const EepromBlock &block, EEPromBuf *buffer);
    int readBlockLength(const EepromBlock &block, int *length);
    int readWord(const EepromBlock &block, unsigned int *word);
    bool readMark(const EepromBlock &block, int *status);

    Completion m_registerPC;
    Completion m_ping;
    Completion m_batteryEscFactoryCheck;
    Completion m_gimbalAnguVeloPosi;
    Completion m_gimbalFactoryCheck;
    RecordCompletion<CameraStatus> m_cameraState;
    RecordCompletion<TFCardStatus> m_tfCardStatus;
    RecordCompletion<TFCardUsedStatus> m_tfCardUsedStatus;
    RecordCompletion<BatteryInfo> m_batteryInfo;
    RecordCompletion<BatteryStatus> m_batteryStatus;
    RecordCompletion<GimbalDeviceInfo> m_gimbalDeviceInfo;
    RecordCompletion<GimbalState> m_gimbalState;
    RecordCompletion<GimbalESCDevicesCheck> m_gimbalEscDevicesCheck;
    RecordCompletion<std::shared_ptr<EEPromBuf>> m_eeprom;

    std::atomic<bool> m_abandoned{false};
    std::atomic<bool> connected{false};
    int m_failedPings = 0; ///< supervisor thread only

    std::mutex m_loopMutex; ///< guards the two flags below
    std::condition_variable m_loopCond;
    bool running = true;
    bool exited = false;
    std::shared_ptr<std::thread> m_supervisor; ///< last: it starts when everything else is in place
};
