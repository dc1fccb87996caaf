#pragma once

#include <QJsonObject>

/// What the probe knows. GUI thread.
namespace Questions {

/// question["what"] chooses: "widget", "action", "tool", "row", "window", "view", "tasks",
/// "picture" (writes the screen to the file "name").
QJsonObject answer(const QJsonObject& question);

} // namespace Questions
