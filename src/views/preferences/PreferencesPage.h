#pragma once

#include "app/Preferences.h"

#include <QComboBox>
#include <QVariant>
#include <QWidget>

class QVBoxLayout;

/// A page of the preferences: rows, each with a name, a control and where needed a sentence below the
/// name. A change is saved at once; what cannot be saved is said, and the control shows what is stored.
class PreferencesPage : public QWidget {
    Q_OBJECT

public:
    PreferencesPage(const char *name, QString title, Preferences &preferences);

    const QString &title() const { return m_title; }

Q_SIGNALS:
    void saved();
    void failed(const QString &sentence);

protected:
    Preferences &preferences() { return m_preferences; }

    /// The control gets the name for tests and, for screen readers, the label. With `hint` a sentence.
    void addRow(const char *name, const QString &label, QWidget &control, const QString &hint = {});
    void addWide(QWidget &widget);
    void addHeading(const QString &text);
    void endRows();

    /// One of several values. The apply function answers whether it could be saved.
    template <class Value>
    struct Choice {
        QString text;
        Value value;
    };
    /// What was set elsewhere may be none of the usual choices; it can be kept.
    template <class Value>
    static bool offers(const QList<Choice<Value>> &choices, const std::type_identity_t<Value> &value)
    {
        return std::any_of(choices.begin(), choices.end(),
                           [&value](const Choice<Value> &each) { return each.value == value; });
    }
    template <class Value>
    QComboBox &addChoice(const char *name, const QString &label, const QList<Choice<Value>> &choices,
                         std::function<Value()> stored, std::function<Result<void>(const Value &)> apply,
                         const QString &hint = {})
    {
        auto *box = new QComboBox;
        for (const Choice<Value> &each : choices)
            box->addItem(each.text, QVariant::fromValue(each.value));
        const auto showStored = [box, stored] {
            box->setCurrentIndex(std::max(0, box->findData(QVariant::fromValue(stored()))));
        };
        showStored();
        connect(box, &QComboBox::activated, this, [this, box, apply, showStored](int index) {
            report(apply(box->itemData(index).value<Value>()), showStored);
        });
        addRow(name, label, *box, hint);
        return *box;
    }
    void addSwitch(const char *name, const QString &label, std::function<bool()> stored,
                   std::function<Result<void>(bool)> apply, const QString &hint = {});
    /// A choice of a setting of the program.
    template <class Value>
    QComboBox &addChoice(const char *name, const QString &label, const Setting<Value> &setting,
                         const QList<Choice<Value>> &choices, const QString &hint = {})
    {
        return addChoice<Value>(
            name, label, choices, [this, &setting] { return m_preferences.value(setting); },
            [this, &setting](const Value &value) { return m_preferences.set(setting, value); }, hint);
    }

    void report(const Result<void> &result, const std::function<void()> &showStored);

private:
    QString m_title;
    Preferences &m_preferences;
    QVBoxLayout *m_column;
};
