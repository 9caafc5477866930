#include "emulator/command/FaultPlan.h"

namespace emulator {

FaultPlan::FaultPlan(const Scenario &scenario)
    : m_lossPercent(scenario.replyLoss.percent), m_random(scenario.replyLoss.seed)
{
    for (std::size_t command = 0; command < m_lists.size(); ++command) {
        for (const Fault &fault : scenario.faults[command]) {
            List &list = fault.address ? m_listsByAddress[*fault.address] : m_lists[command];
            list.append(fault);
        }
    }
}

std::optional<Fault> FaultPlan::next(Command command, std::optional<int> address)
{
    constexpr std::uint32_t hundred = 100;
    const std::optional<Fault> fault = nextOfLists(command, address);
    const bool isLost = m_lossPercent > 0 && m_random() % hundred < static_cast<std::uint32_t>(m_lossPercent);
    return fault || !isLost ? fault : Fault{};
}

std::optional<Fault> FaultPlan::nextOfLists(Command command, std::optional<int> address)
{
    if (address) {
        const auto own = m_listsByAddress.find(*address);
        if (own != m_listsByAddress.end()) {
            return own->next();
        }
    }
    return m_lists[commandIndex(command)].next();
}

std::optional<Fault> FaultPlan::List::next()
{
    while (m_current < m_faults.size()) {
        const Fault &fault = m_faults[m_current];
        if (fault.times && m_seen >= fault.after + *fault.times) {
            ++m_current;
            m_seen = 0;
            continue;
        }
        if (m_seen < fault.after) {
            ++m_seen;
            return std::nullopt;
        }
        if (fault.times) {
            ++m_seen;
        }
        return fault;
    }
    return std::nullopt;
}

} // namespace emulator
