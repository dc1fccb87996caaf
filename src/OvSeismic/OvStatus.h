#pragma once

#include <QString>

/// Outcome of an operation that can fail: success, or a message for the user.
///
/// The message is complete and translated: it names the file, the place in it where that is known,
/// and what to do next. The seismic and framework libraries hand it up; only dialogs show it.
class [[nodiscard]] OvStatus
{
public:
    OvStatus() = default;

    static OvStatus success() { return {}; }
    static OvStatus failure(const QString& message)
    {
        OvStatus status;
        status.m_failed = true;
        status.m_message = message;
        return status;
    }

    bool ok() const { return !m_failed; }
    explicit operator bool() const { return ok(); }
    /// Empty on success.
    QString message() const { return m_message; }

private:
    bool m_failed = false;
    QString m_message;
};
