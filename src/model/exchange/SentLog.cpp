#include "model/exchange/SentLog.h"

#include "corvexkit/log/CXLog.h"
#include "model/store/Connection.h"

#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

constexpr CXLogger sentLogLog{u"log"};
constexpr qsizetype mostBytes = 1'000'000;
constexpr QStringView removed{u"***"};

// The columns in which records hold what a person wrote.
constexpr const char *ownColumns = "'title', 'content', 'desc', 'name', 'label', 'notes', 'url', 'location', "
                                   "'fileName', 'path', 'projectName', 'unit', 'email'";

// Whole lines from the end on.
QByteArray newestLines(const DataFolders &folders)
{
    QByteArray lines;
    const QStringList newestFirst = QDir{folders.log()}.entryList({u"*.log"_s}, QDir::Files, QDir::Time);
    for (const QString &each : newestFirst) {
        QFile file{folders.log() + u'/' + each};
        if (file.open(QIODevice::ReadOnly)) lines.prepend(file.readAll());
        if (lines.size() > mostBytes) break;
    }
    if (lines.size() <= mostBytes) return lines;
    const qsizetype lineEnd = lines.indexOf('\n', lines.size() - mostBytes);
    return lineEnd < 0 ? QByteArray{} : lines.mid(lineEnd + 1);
}

/// A log entry by entry. The heads (time, level, category) tell nothing of the person and stay as they are.
class LogEntries {
public:
    // A line that does not begin with a time goes on with the one before.
    explicit LogEntries(const QString &log)
    {
        static const QRegularExpression begin{u"^(?=\\d{4}-\\d\\d-\\d\\dT)"_s,
                                              QRegularExpression::MultilineOption};
        static const QRegularExpression head{u"^\\d{4}-\\S+ \\w+ [\\w.]+: "_s};
        for (const QString &each : log.split(begin, Qt::SkipEmptyParts)) {
            const qsizetype length = head.match(each).capturedLength();
            m_heads.append(each.first(length));
            m_bodies.append(each.sliced(length));
        }
    }

    const QStringList &bodies() const { return m_bodies; }
    template <class Change>
    void changeBodies(Change change)
    {
        for (QString &each : m_bodies)
            each = change(each);
    }

    QString text() const
    {
        QString log;
        for (qsizetype i = 0; i < m_heads.size(); ++i)
            log += m_heads[i] + m_bodies[i];
        return log;
    }

private:
    QStringList m_heads;
    QStringList m_bodies;
};

// From the first mark of an entry to its last one: what is quoted may hold such marks itself, and lines.
QString withoutQuotations(QString entry)
{
    static const QRegularExpression quotations{
        u"“.*”|„.*[“”]|‘.*’|«.*»|‹.*›|「.*」|『.*』|\".*\"|(?<=[\\s(])'.*'(?=[\\s).,:;]|$)"_s,
        QRegularExpression::DotMatchesEverythingOption};
    static const QRegularExpression link{u"(?<=orvane:)[^\n]+"_s};
    return entry.replace(quotations, removed.toString()).replace(link, removed.toString());
}

// A letter or digit of a script with spaces between words.
bool isOfWord(QChar unit) { return unit.unicode() < 0x250 && unit.isLetterOrNumber(); }

/// Whether a text may stand in the log, found out in no time for most of those that do not.
class LogWords {
public:
    explicit LogWords(const QString &log) : m_log(log)
    {
        for (qsizetype begin = 0; begin < log.size();) {
            const qsizetype end = endOfWord(log, begin);
            m_words.insert(QStringView{log}.sliced(begin, end - begin));
            begin = end;
        }
    }
    bool mayHold(QStringView text) const
    {
        for (qsizetype begin = 0; begin < text.size();) {
            const qsizetype end = endOfWord(text, begin);
            // The last one may go on there.
            if (end < text.size() && !m_words.contains(text.sliced(begin, end - begin))) return false;
            begin = end;
        }
        return m_log.contains(text);
    }

private:
    // Letters of scripts without spaces are words of their own, as is each mark.
    static qsizetype endOfWord(QStringView text, qsizetype begin)
    {
        qsizetype end = begin;
        while (end < text.size() && isOfWord(text[end]))
            ++end;
        return std::max(end, begin + 1);
    }

    const QString &m_log; // what the words are views of
    QSet<QStringView> m_words;
};

// Less than this is no title, but part of any word.
bool isLongEnough(QStringView text)
{
    const bool hasIdeographs = std::ranges::any_of(text, [](QChar unit) { return unit.unicode() >= 0x2e80; });
    return text.size() >= (hasIdeographs ? 2 : 4);
}

void findOwnTexts(Connection &store, const LogWords &words, QSet<QString> &found)
{
    const auto take = [&](const QString &text) {
        if (isLongEnough(text) && words.mayHold(text)) found.insert(text);
    };
    auto columns = store.prepare(std::string{"SELECT t.name, c.name FROM sqlite_schema t, pragma_table_info("
                                             "t.name) c WHERE t.type = 'table' AND c.name IN ("} +
                                 ownColumns + ")");
    while (columns->executeStep()) {
        const std::string table = columns->getColumn(0).getString();
        const std::string column = columns->getColumn(1).getString();
        auto rows =
            store.prepare("SELECT \"" + column + "\" FROM \"" + table + "\" WHERE \"" + column + "\" <> ''");
        while (rows->executeStep())
            for (const QString &line : QString::fromUtf8(rows->getColumn(0).getText()).split(u'\n'))
                take(line.trimmed());
    }
}

// The longest of them first; none when the store cannot be asked.
std::optional<QStringList> ownTextsIn(const QString &log, const DataFolders &folders)
{
    if (!QFile::exists(folders.store())) return QStringList{};
    QSet<QString> found;
    try {
        Connection store{folders.store().toStdString(), Connection::Access::ReadWrite};
        store.leaveFileAsItIs();
        findOwnTexts(store, LogWords{log}, found);
    } catch (const SQLite::Exception &exception) {
        sentLogLog.warning(QString::fromUtf8(exception.what()));
        return std::nullopt;
    }
    QStringList longestFirst{found.begin(), found.end()};
    std::ranges::sort(longestFirst, std::ranges::greater{}, [](const QString &each) { return each.size(); });
    return longestFirst;
}

// A text that is a part of a longer word there is another one.
QString withoutText(const QString &body, const QString &text)
{
    const bool isOpenInFront = !isOfWord(text.front());
    const bool isOpenBehind = !isOfWord(text.back());
    QString kept;
    qsizetype keptEnd = 0;
    for (qsizetype at = body.indexOf(text); at >= 0;) {
        const qsizetype end = at + text.size();
        const bool isWhole = (isOpenInFront || at == 0 || !isOfWord(body[at - 1])) &&
                             (isOpenBehind || end == body.size() || !isOfWord(body[end]));
        if (isWhole) {
            kept += QStringView{body}.sliced(keptEnd, at - keptEnd);
            kept += removed;
            keptEnd = end;
        }
        at = body.indexOf(text, isWhole ? end : at + 1);
    }
    return keptEnd == 0 ? body : kept.append(QStringView{body}.sliced(keptEnd));
}

QStringList foldersOf(const DataFolders &folders)
{
    const QString home = QDir::homePath();
    QStringList all{folders.data, folders.config, QFileInfo{home}.canonicalFilePath(), home};
    all.removeIf([](const QString &each) { return each.size() <= 1; });
    return all;
}

QString newestOf(const QString &log)
{
    const QByteArray bytes = log.toUtf8();
    if (bytes.size() <= mostBytes) return log;
    const qsizetype lineEnd = bytes.indexOf('\n', bytes.size() - mostBytes);
    return lineEnd < 0 ? QString{} : QString::fromUtf8(bytes.mid(lineEnd + 1));
}

} // namespace

QString logToSend(const DataFolders &folders)
{
    LogEntries entries{QString::fromUtf8(newestLines(folders))};
    // Folders before titles: one that is a part of their path would hide them.
    entries.changeBodies([paths = foldersOf(folders)](const QString &body) {
        QString changed = withoutQuotations(body);
        for (const QString &each : paths)
            changed.replace(each, u"~"_s);
        return changed;
    });
    const std::optional<QStringList> own = ownTextsIn(entries.bodies().join(QString{}), folders);
    entries.changeBodies([&own](const QString &body) {
        if (!own) return removed.toString() + u'\n';
        QString changed = body;
        for (const QString &each : *own)
            changed = withoutText(changed, each);
        return changed;
    });
    return newestOf(entries.text());
}
