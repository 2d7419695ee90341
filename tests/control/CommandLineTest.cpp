#include "QtPrinting.h"

#include "Commands.h"
#include "Rendering.h"

#include <QJsonArray>
#include <QJsonDocument>

#include <gtest/gtest.h>

namespace quorvel::ctl {

namespace {

/// The request as "command {arguments}", or "! problem"; an unread input stays unread.
QString asked(const QString& line) {
    bool wasRead = false;
    const ReadInput input = [&]() -> std::optional<QString> {
        wasRead = true;
        return QStringLiteral("in");
    };
    QString problem;
    const auto invocation = parse(line.split(u' ', Qt::SkipEmptyParts), input, problem);
    if (!invocation)
        return QStringLiteral("! ") + problem + (wasRead ? QStringLiteral(" (read)") : QString());
    const QString fields = QString::fromUtf8(
        QJsonDocument(invocation->request.arguments).toJson(QJsonDocument::Compact));
    return invocation->request.command + u' ' + fields +
           (invocation->rendered == json ? QStringLiteral(" as JSON") : QString());
}

} // namespace

TEST(CommandLine, SaysWhatIsAskedOrWhatIsWrong) {
    const struct {
        const char* line;
        const char* asked;
    } cases[]{
        {"list", "list {}"},
        {"list --json", "list {} as JSON"},
        {"show", "show {}"},
        {"show copy", "show {\"menu\":\"copy\"}"},
        {"show copy --json", "! \"--json\" is one word too many"},
        {"search two words --json", "search {\"text\":\"two words\"} as JSON"},
        {"search --json", "! search needs a text to search for"},
        {"layouts ghbdtn vbh --json", "layouts {\"text\":\"ghbdtn vbh\"} as JSON"},
        {"layouts", "! layouts needs a text to convert"},
        {"copy", "copy {\"text\":\"in\"}"},
        {"copy x", "! \"x\" is one word too many"},
        {"paste 2 --keep", "paste {\"mode\":\"keepClipboard\",\"position\":2}"},
        {"paste 2 --keep --plain", "! --plain and --keep do not go together"},
        {"transform upper", "transform {\"tool\":\"upper\"}"},
        {"transform", "! transform needs plain, trim, upper, lower or title after it"},
        {"pin 3", "pin {\"position\":3}"},
        {"delete 0", "! the position of a clip is missing: a number from 1, see \"quorvelctl "
                     "list\""},
        {"unpin 3 4", "! \"4\" is one word too many"},
        {"snippets list --json", "snippets list {} as JSON"},
        {"snippets add", "snippets add {\"text\":\"in\"}"},
        {"snippets add --group g --title t",
         "snippets add {\"group\":\"g\",\"text\":\"in\",\"title\":\"t\"}"},
        {"snippets add --title t --group", "! --group needs a word after it"},
        {"snippets add more", "! \"more\" is one word too many"},
        {"snippets paste 2", "snippets paste {\"snippet\":\"2\"}"},
        {"snippets remove", "! the number or id of a snippet is missing, see \"quorvelctl "
                            "snippets list\""},
        {"snippets", "! \"snippets\" needs list, add, remove or paste after it"},
        {"dance", "! unknown command \"dance\""},
        {"", "! a command is missing"},
    };
    for (const auto& [line, expected] : cases)
        EXPECT_EQ(asked(QString::fromLatin1(line)), QString::fromLatin1(expected)) << line;
}

TEST(CommandLine, ResultsAreReadable) {
    const auto value = [](const char* text) {
        return QJsonValue(QJsonDocument::fromJson(text).array());
    };
    EXPECT_EQ(clipList(value("[]")), QStringLiteral("The history is empty.\n"));
    EXPECT_EQ(snippetList(value(R"([{"number": 1, "title": "a"},
                                    {"number": 2, "title": "b\nc", "group": "g"}])")),
              QStringLiteral("   1  a\n   2  g / b c\n"));
    EXPECT_EQ(foundList(value(R"([{"kind": "clip", "position": 7, "title": "a"},
                                  {"kind": "snippet", "id": "ID", "title": "b"}])")),
              QStringLiteral("clip 7  a\nsnippet ID  b\n"));
    const auto layouts = [](const char* text) {
        return layoutList(QJsonDocument::fromJson(text).object());
    };
    EXPECT_EQ(layouts(R"({"layouts": [{"id": "us"}], "source": null})"),
              QStringLiteral("Fewer than two keyboard layouts are configured.\n"));
    EXPECT_EQ(layouts(R"({"layouts": [{}, {}], "source": null})"),
              QStringLiteral("No configured layout has keys for this text.\n"));
    EXPECT_EQ(layouts(R"({"layouts": [{}, {}], "source": {"id": "us", "name": "English"},
                          "variants": [{"id": "ru", "name": "Russian", "text": "a\nb",
                                        "likelihood": "likely"}]})"),
              QStringLiteral("typed in English [us]\nRussian [ru], likely: a b\n"));
}

} // namespace quorvel::ctl
