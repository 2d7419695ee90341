#include "PromptWatch.h"

#include <cstdio>
#include <string>

#include <termios.h>
#include <unistd.h>

namespace quorvel {

namespace {

/// By which programs ask for pastes between marks, and for plain ones again.
constexpr std::string_view pastesOn = "\033[?2004h";
constexpr std::string_view pastesOff = "\033[?2004l";

/// Whether the sequence is complete with this character; `matched` is how much of it there was.
bool completes(std::string_view sequence, std::size_t& matched, char c) {
    if (sequence[matched] != c)
        matched = 0;
    if (sequence[matched] == c)
        ++matched;
    if (matched < sequence.size())
        return false;
    matched = 0;
    return true;
}

/// Whether the process has children, as far as the system tells.
bool hasChildren(pid_t process) {
    const std::string number = std::to_string(process);
    const std::string path = "/proc/" + number + "/task/" + number + "/children";
    std::FILE* file = std::fopen(path.c_str(), "re");
    if (!file)
        return false;
    const bool isEmpty = std::fgetc(file) == EOF;
    std::fclose(file);
    return !isEmpty;
}

} // namespace

PromptWatch::PromptWatch(int master, pid_t shell)
    : m_master(master)
    , m_shell(shell) {}

void PromptWatch::see(std::string_view output) {
    m_lastOutput = Clock::now();
    m_hasWritten = true;
    for (const char c : output) {
        if (completes(pastesOn, m_matched[0], c))
            m_takesPastes = true;
        if (completes(pastesOff, m_matched[1], c))
            m_takesPastes = false;
    }
}

PromptWatch::Prompt PromptWatch::prompt() const {
    const auto quiet = Clock::now() - m_lastOutput;
    if (hasLineEditor()) {
        if (m_takesPastes)
            return Prompt::takesPastes;
        return m_hasWritten && quiet >= editorQuiet ? Prompt::takesKeys : Prompt::notYet;
    }
    const bool isLongQuiet = quiet >= (m_hasWritten ? plainQuiet : silence);
    return isLongQuiet && isIdle() ? Prompt::takesKeys : Prompt::notYet;
}

/// A line editor takes every key by itself.
bool PromptWatch::hasLineEditor() const {
    termios modes{};
    return tcgetattr(m_master, &modes) == 0 && (modes.c_lflag & ICANON) == 0;
}

bool PromptWatch::isIdle() const {
    return tcgetpgrp(m_master) == m_shell && !hasChildren(m_shell);
}

} // namespace quorvel
