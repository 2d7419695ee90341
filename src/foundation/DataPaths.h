#pragma once

#include <QString>

namespace quorvel {

/// Where this user's data, settings and control socket live. No folder is made here.
struct DataPaths {
    QString historyFile;
    QString journalFile;
    QString snippetsFile;
    QString formerDataFolder; ///< Where the data lay under the product's former name; may be empty.
    QString preferencesFile;
    QString runtimeFolder; ///< Private to the user; holds the instance lock and the control socket.
    QString controlSocket;
    QString instanceLock;
    QString commandFolder; ///< Private too; for commands on their way into a terminal.

    /// From the environment: `XDG_DATA_HOME`, `XDG_CONFIG_HOME`, `XDG_RUNTIME_DIR`, each with its
    /// usual default. Inside a test host the data goes to a throw-away folder of this process.
    static DataPaths fromEnvironment();
};

} // namespace quorvel
