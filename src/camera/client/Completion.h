#pragma once

#include "camera/client/deviceCommands.h"
#include "camera/client/WireReader.h"

#include <condition_variable>
#include <cstdint>
#include <mutex>
#include <QtGlobal>
#include <vector>

/// What joins a command, its callers and its replies: one for each command of a `Camera`, made by it with the first
/// request or reply, and kept as long as the client.
class Completion
{
    Q_DISABLE_COPY(Completion)

public:
    /// `row` outlives the client: the rows of `deviceCommands.h` are there as long as the program.
    explicit Completion(const DeviceCommand &row) : command(row) {}
    virtual ~Completion() = default;

    /// Ends the wait: with `code`, or, if that is success, with whether the reply data are those that the row expects.
    /// On the receive thread.
    void complete(int code, const std::uint8_t *data, int length);
    /// Whether a reply of that number belongs to an earlier, repeated or given up request and not to the present one.
    /// From any thread.
    bool isStale(std::uint16_t number);

    const DeviceCommand &command;

    std::mutex oneRequest; ///< one caller at a time: held during a whole request, and taken before `mutex`
    std::mutex mutex;      ///< guards what follows, between that caller and the receive thread
    std::condition_variable cond;
    std::int32_t result = 0;       ///< of the last completion
    std::uint64_t completions = 0; ///< how many there were: tells one from a spurious wake-up

    std::vector<std::uint16_t> numbers; ///< of the frames of the last request, or of the one under way
    /// Of the last request before it that was sent more than once, or given up before its time.
    std::vector<std::uint16_t> staleNumbers;
    bool givenUp = false; ///< the last request, since its run was stopped or the program is closing

private:
    /// Takes the data of a good reply. With `mutex` held.
    virtual void read(WireReader &) {}
};

/// The completion of a command whose reply carries data.
template <class Record>
class RecordCompletion final : public Completion
{
public:
    explicit RecordCompletion(const RecordCommand<Record> &row) : Completion(row) {}

    Record record{}; ///< the last good reply, guarded by `mutex`

private:
    void read(WireReader &in) override { record.read(in); }
};
