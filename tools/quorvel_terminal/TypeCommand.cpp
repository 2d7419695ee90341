#include "TypeCommand.h"

#include "PromptWatch.h"
#include "PtyRelay.h"
#include "TypedText.h"
#include "UserShell.h"

#include <cstdio>
#include <cstdlib>

#include <unistd.h>

namespace quorvel {

namespace {

/// Waits for the prompt, then sends the command there, once.
class Typist {
public:
    Typist(PtyRelay& relay, std::string command, std::string note)
        : m_relay(relay)
        , m_watch(relay.master(), relay.shell())
        , m_command(std::move(command))
        , m_note(std::move(note)) {}

    /// A turn of the relay.
    int turn(std::string_view output) {
        constexpr int forEver = -1;
        if (m_isDone)
            return forEver;
        if (!output.empty())
            see(output);
        m_isDone = typeAt(m_watch.prompt());
        return m_isDone ? forEver : int(PromptWatch::interval.count());
    }

private:
    void see(std::string_view output) {
        m_watch.see(output);
        m_prompt += output;
        m_prompt.erase(0, m_prompt.rfind('\n') + 1);
    }

    bool typeAt(PromptWatch::Prompt prompt) {
        if (prompt == PromptWatch::Prompt::takesPastes)
            m_relay.send(pastedForm(m_command));
        else if (prompt == PromptWatch::Prompt::takesKeys)
            typeLine();
        return prompt != PromptWatch::Prompt::notYet;
    }

    void typeLine() {
        const TypedForm form = typedForm(m_command);
        if (form.isCut) {
            const std::string line = "\r\n" + shownForm(m_note) + "\r\n" + m_prompt;
            [[maybe_unused]] const ssize_t shown = write(STDOUT_FILENO, line.data(), line.size());
        }
        m_relay.send(form.line);
    }

    PtyRelay& m_relay;
    PromptWatch m_watch;
    std::string m_command;
    std::string m_note;
    std::string m_prompt; ///< The last line of the output.
    bool m_isDone = false;
};

} // namespace

int typeCommand(const std::string& command, const std::string& note) {
    PtyRelay relay(userShell());
    if (!relay.isStarted()) {
        std::perror("quorvel-terminal");
        return EXIT_FAILURE;
    }
    Typist typist(relay, plainText(command), plainText(note));
    return relay.relay([&](std::string_view output) { return typist.turn(output); });
}

} // namespace quorvel
