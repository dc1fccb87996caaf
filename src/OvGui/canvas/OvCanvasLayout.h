#pragma once

#include <QRect>

/// Where the parts of a canvas lie, in widget coordinates.
struct OvCanvasLayout
{
    QRect title;
    QRect timeAxis;
    QRect traceAxis;
    QRect data;
    QRect horizontalBar;
    QRect verticalBar;

    struct Sizes
    {
        int title;
        int timeAxis;
        int traceAxis;
        int bar;
    };

    static OvCanvasLayout of(const QSize& whole, const Sizes& sizes)
    {
        OvCanvasLayout layout;
        const QPoint corner(sizes.timeAxis, sizes.title + sizes.traceAxis);
        const int right = qMax(corner.x() + 1, whole.width() - sizes.bar);
        const int bottom = qMax(corner.y() + 1, whole.height() - sizes.bar);
        layout.data = QRect(corner, QPoint(right - 1, bottom - 1));
        layout.title = QRect(0, 0, whole.width(), sizes.title);
        layout.timeAxis = QRect(0, corner.y(), sizes.timeAxis, layout.data.height());
        layout.traceAxis = QRect(corner.x(), sizes.title, layout.data.width(), sizes.traceAxis);
        layout.horizontalBar = QRect(corner.x(), bottom, layout.data.width(), sizes.bar);
        layout.verticalBar = QRect(right, corner.y(), sizes.bar, layout.data.height());
        return layout;
    }
};
