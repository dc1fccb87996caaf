#include "Pictures.h"

#include <QPainter>

#include <algorithm>
#include <array>
#include <cmath>

namespace {

constexpr int margin = 44;

QImage blank(int width, int height, const QString& title)
{
    QImage image(width + 2 * margin, height + 2 * margin, QImage::Format_RGB32);
    image.fill(Qt::white);
    QPainter painter(&image);
    painter.drawText(QRect(0, 0, image.width(), margin), Qt::AlignCenter, title);
    return image;
}

double clipOf(const float* trace, int from, int to)
{
    constexpr double clip = 0.9;
    std::vector<float> sizes;
    for (int i = from; i < to; ++i)
        sizes.push_back(std::abs(trace[i]));
    if (sizes.empty())
        return 1.0;
    const auto rank =
        sizes.begin() + static_cast<std::ptrdiff_t>(clip * static_cast<double>(sizes.size() - 1));
    std::nth_element(sizes.begin(), rank, sizes.end());
    return std::max(static_cast<double>(*rank), 1e-30);
}

void drawTrace(const OvGather& gather, int row, double startMs, double msPerPixel, QRect box,
               QImage* image)
{
    const float* trace = gather.trace(row);
    const int last =
        std::clamp(static_cast<int>(gather.sampleAt(row, startMs + box.height() * msPerPixel)), 0,
                   gather.sampleCount);
    const double clip = clipOf(trace, 0, last);
    for (int y = 0; y < box.height(); ++y) {
        const int sample =
            static_cast<int>(std::lround(gather.sampleAt(row, startMs + (y + 0.5) * msPerPixel)));
        if (sample < 0 || sample >= gather.sampleCount)
            continue;
        const double value = std::clamp(static_cast<double>(trace[sample]) / clip, -1.0, 1.0);
        const int grey = static_cast<int>(std::lround(128.0 - 127.0 * value));
        for (int x = 0; x < box.width(); ++x)
            image->setPixel(box.left() + x, box.top() + y, qRgb(grey, grey, grey));
    }
}

void drawTimes(double startMs, double endMs, double msPerPixel, QPainter* painter)
{
    const std::array<double, 9> steps{5.0, 10.0, 20.0, 50.0, 100.0, 200.0, 500.0, 1000.0, 5000.0};
    const auto step = std::find_if(steps.begin(), steps.end() - 1, [&](double candidate) {
        return (endMs - startMs) / candidate <= 12.0;
    });
    const int last = static_cast<int>(std::floor(endMs / *step));
    for (int mark = static_cast<int>(std::ceil(startMs / *step)); mark <= last; ++mark) {
        const double time = mark * *step;
        const int y = margin + static_cast<int>((time - startMs) / msPerPixel);
        painter->drawText(QRect(0, y - 8, margin - 4, 16), Qt::AlignRight | Qt::AlignVCenter,
                          QString::number(time));
    }
}

} // namespace

QImage Pictures::gather(const OvGather& gather, double endMs, const std::vector<Marks>& marks,
                        const QString& title)
{
    constexpr int height = 560;
    const int traces = std::max(gather.traceCount(), 1);
    const int pixels = std::max(900 / traces, 2);
    const double startMs = gather.traceCount() > 0 ? gather.timeMs(0, 0.0) : 0.0;
    const double msPerPixel = (endMs - startMs) / height;
    QImage image = blank(pixels * traces, height, title);
    for (int row = 0; row < gather.traceCount(); ++row)
        drawTrace(gather, row, startMs, msPerPixel,
                  QRect(margin + pixels * row, margin, pixels, height), &image);
    QPainter painter(&image);
    drawTimes(startMs, endMs, msPerPixel, &painter);
    for (const Marks& mark : marks) {
        for (std::size_t row = 0; row < mark.timesMs.size(); ++row) {
            const double y = margin + (mark.timesMs[row] - startMs) / msPerPixel;
            if (y >= margin && y < margin + height)
                painter.fillRect(
                    QRectF(margin + pixels * static_cast<double>(row), y - 1.0, pixels, 2.0),
                    mark.colour);
        }
    }
    return image;
}

QImage Pictures::reliability(const std::vector<std::vector<Scores::Bin>>& curves,
                             const QStringList& names)
{
    constexpr int size = 420;
    static const std::array<QColor, 6> colours{QColor(31, 119, 180),  QColor(214, 39, 40),
                                               QColor(44, 160, 44),   QColor(255, 127, 14),
                                               QColor(148, 103, 189), QColor(23, 190, 207)};
    QImage image = blank(size, size, QStringLiteral("Share of right picks over their confidence"));
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    const auto at = [](double x, double y) {
        return QPointF(margin + size * x, margin + size * (1.0 - y));
    };
    painter.drawRect(margin, margin, size, size);
    painter.setPen(Qt::lightGray);
    painter.drawLine(at(0.0, 0.0), at(1.0, 1.0));
    for (std::size_t i = 0; i < curves.size(); ++i) {
        const QColor& colour = colours[i % colours.size()];
        painter.setPen(QPen(colour, 2.0));
        for (std::size_t k = 0; k < curves[i].size(); ++k) {
            const Scores::Bin& bin = curves[i][k];
            painter.drawEllipse(at(bin.confidence, bin.right), 3.0, 3.0);
            if (k > 0)
                painter.drawLine(at(curves[i][k - 1].confidence, curves[i][k - 1].right),
                                 at(bin.confidence, bin.right));
        }
        painter.drawText(at(0.03, 0.96 - 0.05 * static_cast<double>(i)),
                         names.value(static_cast<int>(i)));
    }
    painter.setPen(Qt::black);
    for (int tenth = 0; tenth <= 10; tenth += 2) {
        const QPointF low = at(tenth / 10.0, 0.0);
        painter.drawText(QRectF(low.x() - 20, low.y() + 4, 40, 16), Qt::AlignCenter,
                         QString::number(tenth / 10.0));
        const QPointF left = at(0.0, tenth / 10.0);
        painter.drawText(QRectF(left.x() - 44, left.y() - 8, 38, 16),
                         Qt::AlignRight | Qt::AlignVCenter, QString::number(tenth / 10.0));
    }
    return image;
}
