#include "cli/Invocation.h"

#include "app/LaunchRequest.h"
#include "cli/CommandText.h"

#include <algorithm>
#include <iterator>
#include <optional>

using namespace Qt::StringLiterals;

namespace {

struct Option {
    QLatin1StringView name;
    bool Invocation::*flag = nullptr;
    QString Invocation::*value = nullptr;
    QStringList Invocation::*values = nullptr; // the option may be given again and again
    const char *commands = "";                 // those it belongs to; "" for any run
    bool needsPicture = false;
};

constexpr const char *noCommand = "none"; // the client and its pictures

constexpr Option options[] = {
    {.name = "--home"_L1, .value = &Invocation::home},
    {.name = "--locale"_L1, .value = &Invocation::locale},
    {.name = "--zone"_L1, .value = &Invocation::zone},
    {.name = "--demo"_L1, .flag = &Invocation::isDemo},
    {.name = "--login-item"_L1, .flag = &Invocation::isLoginItem, .commands = noCommand},
    {.name = "--send-diagnostics"_L1, .flag = &Invocation::sendsDiagnostics, .commands = noCommand},
    {.name = "--picture"_L1, .value = &Invocation::pictureFile, .commands = noCommand},
    {.name = "--page"_L1, .value = &Invocation::page, .commands = noCommand, .needsPicture = true},
    {.name = "--theme"_L1, .value = &Invocation::theme, .commands = noCommand},
    {.name = "--size"_L1, .value = &Invocation::size, .commands = noCommand, .needsPicture = true},
    {.name = "--scale"_L1, .value = &Invocation::scale, .commands = noCommand, .needsPicture = true},
    {.name = "--text-size"_L1, .value = &Invocation::textSize, .commands = noCommand, .needsPicture = true},
    {.name = "--right-to-left"_L1,
     .flag = &Invocation::isRightToLeft,
     .commands = noCommand,
     .needsPicture = true},
    {.name = "--list"_L1, .value = &Invocation::list, .commands = "add summary"},
    {.name = "--now"_L1, .value = &Invocation::now, .commands = "add list today next7days summary"},
    {.name = "--dry-run"_L1, .flag = &Invocation::isDryRun, .commands = "add"},
    {.name = "--start"_L1, .value = &Invocation::start, .commands = "occurrences"},
    {.name = "--rule"_L1, .value = &Invocation::rule, .commands = "occurrences"},
    {.name = "--all-day"_L1, .flag = &Invocation::isAllDay, .commands = "occurrences"},
    {.name = "--exdate"_L1, .values = &Invocation::exdates, .commands = "occurrences"},
    {.name = "--from"_L1,
     .value = &Invocation::from,
     .commands = "occurrences today next7days search projects pomo summary"},
    {.name = "--to"_L1, .value = &Invocation::to, .commands = "occurrences summary"},
    {.name = "--limit"_L1, .value = &Invocation::limit, .commands = "occurrences"},
    {.name = "--group"_L1, .value = &Invocation::group, .commands = "summary"},
    {.name = "--format"_L1, .value = &Invocation::format, .commands = "summary"},
    {.name = "--out"_L1, .value = &Invocation::out, .commands = "summary"},
    {.name = "--stdin"_L1, .flag = &Invocation::readsStandardInput, .commands = "add occurrences"},
    {.name = "--json"_L1, .flag = &Invocation::answersJson, .commands = "add list"},
    {.name = "--window"_L1, .flag = &Invocation::opensWindow, .commands = "add"},
};

struct Command {
    QLatin1StringView name;
    const char *usage;
};

constexpr Command commands[] = {
    {"add"_L1, "orvane add [--list NAME] [--now ISO] [--dry-run] [--json] TITLE…\n"
               "    Adds a task. Dates, #tags, !priorities and ~lists in the title are understood.\n"
               "    --list NAME  puts it into that list, which may be Today, Tomorrow or a #tag, unless\n"
               "                 the title names one\n"
               "    --now ISO    reads relative dates as of this time, local unless it ends in an offset;\n"
               "                 a day alone is its beginning\n"
               "    --dry-run    shows what is understood, as JSON, and changes nothing\n"
               "    --json       answers the saved task as JSON\n"
               "orvane add --window [TITLE…]\n"
               "    Opens a small window for the task, with TITLE in its field: bind it to a key of the\n"
               "    desktop. Where Orvane is not open yet it starts without its main window.\n"
               "orvane add --dry-run --stdin\n"
               "    Reads lines LOCAL-ISO <TAB> TITLE, answers one JSON object a line.\n"},
    {"list"_L1,
     "orvane list [--json] [NAME]\n"
     "    Shows the open tasks of a list, of Today, Tomorrow, \"Next 7 Days\" or All, or of a #tag;\n"
     "    without NAME, all of them. Each line: id, date, title.\n"},
    {"today"_L1,
     "orvane today [--now ISO] [--from NAME]\n"
     "    Answers the list Today as JSON, by section, as other programs get it on the session bus.\n"
     "    Nothing while nobody is signed in.\n"
     "    --now ISO    as of this time\n"
     "    --from NAME  what the program that asks calls itself\n"},
    {"next7days"_L1, "orvane next7days [--now ISO] [--from NAME]\n"
                     "    The same of the list Next 7 Days.\n"},
    {"search"_L1, "orvane search [--from NAME] TEXT…\n"
                  "    Answers the tasks that the words find as JSON, open ones first.\n"},
    {"projects"_L1, "orvane projects [--from NAME]\n"
                    "    Answers your lists as JSON, in their order.\n"},
    {"pomo"_L1, "orvane pomo [--from NAME] SECONDS\n"
                "    Starts a Pomo of that length in the client that is open; 0 is the length of the\n"
                "    preferences. Nothing happens, and nothing is said, while focus is switched off or\n"
                "    under way, or nobody is signed in.\n"},
    {"summary"_L1,
     "orvane summary [--from DAY] [--to DAY] [--now ISO] [--list NAME] [--group day|list|status]\n"
     "               [--format md|html|pdf] [--out FILE]\n"
     "    Tells what was done in some days and what is planned in them, with focus and habits; without\n"
     "    days, of this week.\n"
     "    --from DAY, --to DAY  both included, such as 2030-05-01; one alone goes to today; ten years\n"
     "                          at most\n"
     "    --now ISO             as if it were this time\n"
     "    --list NAME           of one list only\n"
     "    --format              Markdown, unless FILE ends in .html or .pdf\n"
     "    --out FILE            writes the file instead of standard output\n"},
    {"occurrences"_L1,
     "orvane occurrences --start ISO --rule RULE [--zone TZID] [--all-day] [--exdate ISO]…\n"
     "                   --from ISO --to ISO [--limit N]\n"
     "    Shows when something that repeats by an RFC 5545 rule occurs, from a time to a time, both\n"
     "    included, local, one a line. Times are local unless they end in an offset; a day alone is its\n"
     "    beginning.\n"
     "    --all-day     occurs on days, whatever the hour\n"
     "    --exdate ISO  an occurrence that is left out; may be given again\n"
     "    --limit N     the first N of them\n"
     "orvane occurrences --stdin\n"
     "    Reads JSON objects, one a line: {\"start\", \"zone\", \"allDay\", \"rule\", \"exdates\": [], "
     "\"from\",\n"
     "    \"to\", \"limit\"}; answers one JSON array a line, or {\"error\"}.\n"},
    {"done"_L1, "orvane done ID…\n"
                "    Completes tasks. ID is what `orvane list` shows, or any longer ending of the id.\n"},
    {"undo"_L1, "orvane undo ID…\n"
                "    Opens completed tasks again. ID is what `orvane list completed` shows.\n"},
    {"backup"_L1, "orvane backup [FILE]\n"
                  "    Copies the store into FILE; without FILE, into the backups of the data folder.\n"},
    {"restore"_L1,
     "orvane restore FILE\n"
     "    Puts a copy of a backup in the place of the store, which is kept beside it. Not while\n"
     "    Orvane is open.\n"},
    {"export"_L1, "orvane export [FILE]\n"
                  "    Writes everything as JSON into FILE; without FILE, to standard output.\n"},
    {"import"_L1, "orvane import FILE\n"
                  "    Takes the records of an export in, all of them or none. Of a record that is there\n"
                  "    already the later version stays.\n"},
};

constexpr const char *programUsage =
    "orvane [--home DIR] [--locale xx_YY] [--zone TZID] [--demo] [--login-item]\n"
    "       [--send-diagnostics] [orvane://…]\n"
    "    Opens the client. --demo opens a throw-away folder with a small account; together with --home\n"
    "    it fills that folder. --send-diagnostics packs what helps to find a fault.\n"
    "orvane add|list|summary|occurrences|done|undo|backup|restore|export|import …\n"
    "orvane today|next7days|search|projects|pomo …\n"
    "    See `orvane COMMAND --help`.\n"
    "orvane --picture FILE [--page NAME] [--theme light|dark] [--size WxH] [--scale N]\n"
    "       [--text-size PERCENT] [--right-to-left]\n"
    "    Renders a page of the account to a PNG: welcome, inbox, today, tomorrow, next7days, all,\n"
    "    assigned, completed, abandoned, trash, summary, list:NAME, tag:NAME, filter:NAME,\n"
    "    edit-filter:NAME, search:TEXT, palette:TEXT, quick-add, quick-add:TEXT, detail, schedule, "
    "preferences,\n"
    "    preferences:PAGE, calendar-day, calendar-week or calendar-month (of these also with :crowded,\n"
    "    :more, :shown or :tray), calendar:NAME, habits, habit-detail, habit-day, edit-habit, focus,\n"
    "    focus:running, focus:picker, focus:records or focus:window.\n"
    "orvane --version | --help | -h\n";

const Option *optionNamed(QStringView name)
{
    const auto found = std::ranges::find_if(options, [&](const Option &each) { return each.name == name; });
    return found == std::end(options) ? nullptr : found;
}

const Command *commandNamed(QStringView name)
{
    const auto found = std::ranges::find_if(commands, [&](const Command &each) { return each.name == name; });
    return found == std::end(commands) ? nullptr : found;
}

bool belongsTo(const Option &option, const QString &command)
{
    const QStringList owners = QString::fromLatin1(option.commands).split(u' ', Qt::SkipEmptyParts);
    return owners.isEmpty() || owners.contains(command.isEmpty() ? QString::fromLatin1(noCommand) : command);
}

class Parser {
public:
    explicit Parser(QStringList words) : m_words(std::move(words)) {}

    Result<Invocation> parse()
    {
        while (m_next < m_words.size()) {
            const QString word = m_words.at(m_next++);
            if (!m_optionsEnded && word == u"-h")
                m_invocation.action = Invocation::Action::Help;
            else if (m_optionsEnded || !word.startsWith(u"--"))
                takeArgument(word);
            else if (word == u"--")
                m_optionsEnded = true;
            else if (const auto error = takeOption(word))
                return *error;
        }
        return finish();
    }

private:
    void takeArgument(const QString &word)
    {
        const bool isCommand = m_invocation.command.isEmpty() && m_invocation.arguments.isEmpty() &&
                               !m_optionsEnded && !LaunchRequest::isLink(word);
        if (isCommand)
            m_invocation.command = word;
        else
            m_invocation.arguments.append(word);
    }

    std::optional<Error> takeOption(const QString &word)
    {
        const qsizetype equals = word.indexOf(u'=');
        const QString name = word.left(equals);
        if (name == u"--help" || name == u"--version") {
            m_invocation.action = name == u"--help" ? Invocation::Action::Help : Invocation::Action::Version;
            return std::nullopt;
        }
        const Option *option = optionNamed(name);
        if (!option) return Error{commandText("There is no option “%1”.").arg(name)};
        m_used.append(option);
        if (option->flag) {
            if (equals >= 0) return Error{commandText("“%1” takes no value.").arg(name)};
            m_invocation.*option->flag = true;
            return std::nullopt;
        }
        if (equals < 0 && m_next == m_words.size())
            return Error{commandText("“%1” needs a value.").arg(name)};
        const QString value = equals >= 0 ? word.mid(equals + 1) : m_words.at(m_next++);
        if (value.isEmpty()) return Error{commandText("“%1” needs a value.").arg(name)};
        if (option->values)
            (m_invocation.*option->values).append(value);
        else
            m_invocation.*option->value = value;
        return std::nullopt;
    }

    Result<Invocation> finish()
    {
        using Action = Invocation::Action;
        const QString &command = m_invocation.command;
        if (!command.isEmpty() && !commandNamed(command))
            return Error{commandText("There is no command “%1”.").arg(command)};
        if (m_invocation.action != Action::Window) return m_invocation;
        for (const Option *each : m_used)
            if (!belongsTo(*each, command))
                return Error{commandText("“%1” does not belong to this command.").arg(QString{each->name})};
        if (const auto error = contradiction()) return *error;
        if (!m_invocation.pictureFile.isEmpty()) {
            m_invocation.action = Action::Picture;
        } else if (!command.isEmpty() && !m_invocation.opensWindow) {
            m_invocation.action = Action::Command;
        }
        return m_invocation;
    }

    std::optional<Error> contradiction() const
    {
        const Invocation &all = m_invocation;
        // Of the options of a command, no other says anything about a window.
        for (const Option *each : m_used)
            if (all.opensWindow && *each->commands && each->flag != &Invocation::opensWindow)
                return Error{commandText("“%1” does not go with “--window”.").arg(QString{each->name})};
        if (all.command == u"occurrences") return contradictionOfOccurrences();
        if (all.command == u"search" && all.arguments.isEmpty())
            return Error{commandText("What is to be found? Give its words.")};
        const bool takesNothing = all.command == u"summary" || all.command == u"today" ||
                                  all.command == u"next7days" || all.command == u"projects";
        if (takesNothing && !all.arguments.isEmpty())
            return Error{commandText("“%1” does not belong to this command.").arg(all.arguments.first())};
        if (all.readsStandardInput && !all.isDryRun)
            return Error{commandText("“--stdin” goes with “--dry-run”.")};
        if (all.readsStandardInput && !all.arguments.isEmpty())
            return Error{
                commandText("With “--stdin” the titles come from there, not from the command line.")};
        const bool needsTitle = all.command == u"add" && !all.readsStandardInput && !all.opensWindow;
        if (needsTitle && all.arguments.isEmpty())
            return Error{commandText("What is to be added? Give its title.")};
        for (const Option *each : m_used)
            if (each->needsPicture && all.pictureFile.isEmpty())
                return Error{commandText("“%1” goes with “--picture”.").arg(QString{each->name})};
        if (all.command.isEmpty())
            for (const QString &each : all.arguments)
                if (!LaunchRequest::isLink(each))
                    return Error{commandText("“%1” is no command and no link.").arg(each)};
        return std::nullopt;
    }

    std::optional<Error> contradictionOfOccurrences() const
    {
        const Invocation &all = m_invocation;
        if (!all.arguments.isEmpty())
            return Error{commandText("“%1” does not belong to this command.").arg(all.arguments.first())};
        for (const Option *each : m_used)
            if (all.readsStandardInput && *each->commands && each->flag != &Invocation::readsStandardInput)
                return Error{commandText("“%1” does not go with “--stdin”.").arg(QString{each->name})};
        for (const auto &[name, value] : {std::pair{"--start", all.start}, std::pair{"--rule", all.rule},
                                          std::pair{"--from", all.from}, std::pair{"--to", all.to}})
            if (value.isEmpty() && !all.readsStandardInput)
                return Error{commandText("“%1” is missing.").arg(QLatin1StringView{name})};
        return std::nullopt;
    }

    QStringList m_words;
    qsizetype m_next = 0;
    bool m_optionsEnded = false;
    QList<const Option *> m_used;
    Invocation m_invocation;
};

} // namespace

Result<Invocation> Invocation::parse(std::span<const char *const> words)
{
    QStringList texts;
    for (const QByteArrayView each : words) {
        texts.append(QString::fromUtf8(each));
        if (!each.isValidUtf8()) return Error{commandText("“%1” is not valid UTF-8.").arg(texts.last())};
    }
    return parse(texts);
}

Result<Invocation> Invocation::parse(const QStringList &words) { return Parser{words}.parse(); }

QString usageOf(const QString &command)
{
    const Command *found = commandNamed(command);
    return QString::fromUtf8(found ? found->usage : programUsage);
}
