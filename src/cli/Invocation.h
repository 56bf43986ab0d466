#pragma once

#include "corvexkit/Result.h"

#include <QHash>
#include <QString>
#include <QStringList>

#include <span>

/// What was asked for on the command line. Options stand anywhere; `--` ends them.
struct Invocation {
    enum class Action { Window, Picture, Version, Help, Command };

    Action action = Action::Window;
    QString command;       ///< "add", "list", …; empty without one
    QStringList arguments; ///< what is left: a title, a name, ids, links

    QString home;
    QString locale;
    QString zone;
    QString now;
    QString list;
    QString start;
    QString rule;
    QString from; ///< where occurrences begin; or the program that calls a command for scripts
    QString to;
    QString limit;
    QStringList exdates; ///< as often as given
    QString page;
    QString theme;
    QString size;
    QString scale;
    QString textSize;
    QString pictureFile;
    bool isDemo = false;
    bool isRightToLeft = false;
    bool isLoginItem = false;
    bool sendsDiagnostics = false;
    bool isAllDay = false;
    bool isDryRun = false;
    bool readsStandardInput = false;
    bool answersJson = false;
    bool opensWindow = false; ///< `add --window`: a window for the task, no command

    /// `words` as main() has them, without the program's name: bytes, refused where they are not UTF-8.
    static Result<Invocation> parse(std::span<const char *const> words);
    /// An error is wrong usage: its sentence names the word.
    static Result<Invocation> parse(const QStringList &words);
};

/// The usage of one command, or of the whole program for an empty name.
QString usageOf(const QString &command);
