#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QTimer>

#include <deque>
#include <functional>

/// Runs steps one after the other from the event loop, each as soon as its condition holds.
///
/// An action may open a modal dialog: the steps after it go on while the dialog runs. GUI thread.
class OvStepRunner : public QObject
{
    Q_OBJECT

public:
    struct Step
    {
        QString name;                ///< for the message of a failure
        std::function<bool()> ready; ///< asked again and again; empty for at once
        std::function<bool()> act;   ///< false ends the run as failed; may be empty
        int timeoutMs = 60000;       ///< for the condition; 0 waits for ever
    };

    explicit OvStepRunner(QObject* parent = nullptr);

    void add(Step step);
    void start();

signals:
    /// Once: after the last step, with an empty message, or after the first failure.
    void finished(bool succeeded, const QString& message);

private:
    void proceed();
    void poll();
    void takeNext();
    void run(const Step& step);
    void end(bool succeeded, const QString& message);

    std::deque<Step> steps;
    QTimer timer;
    QElapsedTimer waiting;
};
