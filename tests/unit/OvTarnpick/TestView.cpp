#include "TestView.h"

#include <QKeyEvent>

TestView::TestView(const QString& viewName, bool isEditable)
    : name(viewName)
    , m_canvas(new QWidget(this))
    , m_editable(isEditable)
{
}

void TestView::handleKeyEvent(QKeyEvent* event)
{
    keys.append(event->key());
}

void TestView::setCurrentGather(int gather)
{
    if (gather == m_gather)
        return;
    m_gather = gather;
    emit currentGatherChanged(gather);
}
