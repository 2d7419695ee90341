#pragma once

#include "menu/MenuRenderer.h"
#include "paste/TextEditor.h"
#include "platform/Appearance.h"
#include "platform/Desktop.h"
#include "platform/Terminal.h"
#include "platform/TrayIcon.h"

#include <QStringList>

namespace quorvel::testing {

class FakeMenuRenderer final : public MenuRenderer {
public:
    void open(const QList<MenuItem>& items, MenuForm) override {
        tree = items;
        m_open = true;
    }
    void update(const QList<MenuItem>& items) override { tree = items; }
    void fillSubmenu(const QString& identifier, const QList<MenuItem>& items) override {
        fills.append({identifier, items});
    }
    void warmUp(const QList<MenuItem>&, MenuForm) override { ++warmUps; }
    void close() override {
        if (std::exchange(m_open, false))
            emit closed();
    }
    bool isOpen() const override { return m_open; }
    void setClosingKey(quint32 key, Modifiers) override { closingKey = key; }
    Modifiers currentModifiers() const override { return held; }

    /// The user presses or lets go of modifier keys, and the program is told.
    void hold(Modifiers modifiers) {
        held = modifiers;
        emit modifiersChanged(held);
    }

    /// What a click on an item does: the menu goes, then the choice is told.
    void choose(const MenuItem& item) {
        const MenuChoice choice{item.action, item.representedObject, held};
        close();
        emit chosen(choice);
    }

    QList<MenuItem> tree;
    QList<std::pair<QString, QList<MenuItem>>> fills; ///< Submenus that were filled, in order.
    Modifiers held;
    quint32 closingKey = 0;
    int warmUps = 0;

private:
    bool m_open = false;
};

class FakeTextEditor final : public TextEditor {
public:
    void present(const EditBeforePasteState& state, Done done) override {
        shown = state;
        m_done = std::move(done);
    }
    void close() override { end(std::nullopt); }

    /// The user pastes what they have made of it, or cancels.
    void end(const std::optional<EditBeforePasteState>& edited) {
        if (const Done done = std::exchange(m_done, nullptr))
            done(edited);
    }
    bool isOpen() const { return bool(m_done); }

    EditBeforePasteState shown;

private:
    Done m_done;
};

class FakeStatusItem final : public TrayIcon {
public:
    void show(const QString& toolTip) override { shownToolTip = toolTip; }
    void setIcon(const QString& name) override { icon = name; }
    QString state() const override { return QStringLiteral("xembed"); }
    void notify(const QString& title, const QString&) override { notifications.append(title); }

    QString shownToolTip;
    QString icon;
    QStringList notifications;
};

class FakeAppearance final : public Appearance {
public:
    void apply(AppThemePreset theme) override { applied = theme; }

    AppThemePreset applied = AppThemePreset::system;
};

class FakeDesktop final : public Desktop {
public:
    bool openFile(const QString& path) override {
        openedFiles.append(path);
        return true;
    }
    bool openUrl(const QUrl& url) override {
        openedUrls.append(url.toString(QUrl::FullyEncoded));
        return opensUrls;
    }
    void showMessage(const QString& title, const QString& message) override {
        messages.append(title);
        lastMessage = message;
    }
    void showNotice(const Notice& notice) override { notices.append(notice.title); }

    QStringList openedFiles;
    QStringList openedUrls;
    QStringList notices;
    QStringList messages;
    QString lastMessage;
    bool opensUrls = true;
};

class FakeTerminal final : public Terminal {
public:
    TerminalResult run(const QString& command) override {
        commands.append(QStringLiteral("run ") + command);
        return result;
    }
    TerminalResult type(const QString& command) override {
        commands.append(QStringLiteral("type ") + command);
        return result;
    }

    QStringList commands;
    TerminalResult result;
};

} // namespace quorvel::testing
