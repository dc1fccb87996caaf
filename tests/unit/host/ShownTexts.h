#pragma once

#include <QString>
#include <QStringList>
#include <QWidget>

#include <vector>

/// What a window says, hidden parts and tool tips included, for the tests of the languages.
namespace ShownTexts {

struct Text
{
    QString place; ///< the path of classes and object names that leads to it
    QString text;
};

/// Every text of the window's widgets, menus, tabs, lists and actions, and all that they paint
/// themselves. What users type and what files hold (line edits, documents, file lists) is left out.
std::vector<Text> of(QWidget* window);

/// The texts with a Latin word of two letters or more that is not in allowed, as "place: text".
/// Each of names (file names, folders) is taken out of a text first.
QStringList withEnglish(const std::vector<Text>& texts, const QStringList& names);

/// The texts with a Chinese character; the entry that chooses Chinese is called so in any language.
QStringList withChinese(const std::vector<Text>& texts);

} // namespace ShownTexts
