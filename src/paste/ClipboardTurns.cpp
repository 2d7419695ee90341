#include "paste/ClipboardTurns.h"

#include <utility>

namespace quorvel {

void ClipboardTurns::ask(Begin begin) {
    m_waiting.push_back(std::move(begin));
    if (!m_isTaken)
        beginNext();
}

void ClipboardTurns::end() {
    m_isTaken = false;
    beginNext();
}

void ClipboardTurns::beginNext() {
    if (m_waiting.empty())
        return;
    m_isTaken = true;
    const Begin begin = std::move(m_waiting.front());
    m_waiting.pop_front();
    begin();
}

} // namespace quorvel
