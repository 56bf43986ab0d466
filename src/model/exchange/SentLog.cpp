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

QString withoutQuotations(QString log)
{
    static const QRegularExpression quotations{
        uR"(“[^”\n]*”|„[^“”\n]*[“”]|«[^»\n]*»|「[^」\n]*」|"[^"\n]*"|(?<=orvane:)[^\s\]]+)"_s};
    static_assert(removed.size() == 3);
    return log.replace(quotations, removed.toString());
}

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
    bool mayHold(QStringView text) const { return m_words.contains(text.first(endOfWord(text, 0))); }

private:
    // Letters of scripts without spaces are words of their own, as is each mark.
    static qsizetype endOfWord(QStringView text, qsizetype begin)
    {
        const auto isOfWord = [](QChar unit) { return unit.unicode() < 0x250 && unit.isLetterOrNumber(); };
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

QString withoutOwnTexts(QString log, const DataFolders &folders)
{
    QSet<QString> found;
    try {
        if (!QFile::exists(folders.store())) return log;
        Connection store{folders.store().toStdString(), Connection::Access::ReadWrite};
        store.leaveFileAsItIs();
        findOwnTexts(store, LogWords{log}, found);
    } catch (const SQLite::Exception &exception) {
        sentLogLog.warning(QString::fromUtf8(exception.what()));
    }
    QStringList longestFirst{found.begin(), found.end()};
    std::ranges::sort(longestFirst, std::ranges::greater{}, [](const QString &each) { return each.size(); });
    for (const QString &each : std::as_const(longestFirst))
        log.replace(each, removed.toString());
    return log;
}

} // namespace

QString logToSend(const DataFolders &folders)
{
    QString log = withoutQuotations(QString::fromUtf8(newestLines(folders)));
    log.replace(QDir::homePath(), u"~"_s);
    return withoutOwnTexts(std::move(log), folders);
}
