#pragma once

#include <QString>

#include <optional>

/// Decides the list of a new task, by ids: the hand's choice, else the text's, else the view's. It has no
/// default of its own.
class KWNewTaskProjectReferee {
public:
    void setManual(std::optional<QString> projectID) { m_manual = std::move(projectID); }
    void setNlp(std::optional<QString> projectID) { m_nlp = std::move(projectID); }
    void setPreset(std::optional<QString> projectID) { m_preset = std::move(projectID); }

    const std::optional<QString> &manual() const { return m_manual; }

    std::optional<QString> projectID() const
    {
        for (const auto *each : {&m_manual, &m_nlp, &m_preset})
            if (*each) return *each;
        return std::nullopt;
    }

private:
    std::optional<QString> m_manual;
    std::optional<QString> m_nlp;
    std::optional<QString> m_preset;
};
