#pragma once

#include "menu/MenuItem.h"
#include "snippets/Snippet.h"

namespace quorvel {

class MenuBuild;

/// The rows of the snippets at the root and of the group that was looked at last, kept from one
/// build to the next: only those whose snippets have changed meanwhile are made anew. Always true
/// to what it is asked about.
class SnippetRows {
public:
    /// The rows of all these snippets, which are those of a group, or of the root for a null one.
    QList<MenuItem> of(const QUuid& group, const QList<Snippet>& snippets,
                       const MenuBuild& build) const;

private:
    struct Known {
        QUuid group;
        bool isMasked = true;
        QList<Snippet> snippets; ///< What the rows were made of; shares the library's memory.
        QList<MenuItem> rows;    ///< As they are without option mode.
    };

    static void renew(Known& known, const QList<Snippet>& snippets, const MenuBuild& build);

    mutable Known m_root;
    mutable Known m_group;
};

} // namespace quorvel
