#include "detector/checks/shellCall.h"

#include "detector/store/checkHelpers.h"
#include "detector/store/KestDetectorFace.h"
#include "telnet/session/TelnetInteractiveFace.h"

#include <QElapsedTimer>

namespace {
constexpr int pollMs = 50;

/// Also in the moments before the supervisor has noticed.
bool isShellGone()
{
    const ShellState state = KestDetectorFace::Get()->shellState;
    return state == ShellState::Regaining || (state == ShellState::Up && !TelnetInteractiveFace::Get()->connected());
}
} // namespace

void awaitShell(const std::function<bool()> &cutShort)
{
    KestDetectorFace *face = KestDetectorFace::Get();
    QElapsedTimer clock;
    clock.start();
    while (isShellGone() && !face->closing() && !cutShort()) {
        if (clock.hasExpired(shellPatience.count())) {
            // From here on it counts as one that was never there; the supervisor tells when it is back.
            ShellState regaining = ShellState::Regaining;
            face->shellState.compare_exchange_strong(regaining, ShellState::None);
            break;
        }
        face->notices.tell(Notices::waitingForShell());
        mSleep(pollMs);
    }
    face->notices.withdraw(Notice::Kind::Waiting);
}

int shellCall(const QString &command, int step, QString *reply)
{
    awaitShell([] { return KestDetectorFace::Get()->runIsCutShort(); });
    return TelnetInteractiveFace::Get()->telnet(command, step, reply);
}
