#include "ui/printing/LabelPainter.h"

#include "base/Error.h"
#include "labels/BarcodeSymbol.h"
#include "ui/platform/Strings.h"
#include "ui/printing/TextFit.h"

#include <QPainter>
#include <QRegularExpression>
#include <QSvgRenderer>

#include <algorithm>
#include <cmath>

namespace quellbrook {

namespace {

constexpr double NarrowestModule = 0.19;  // millimeters
constexpr double SmallestFont = 2.1;      // millimeters
constexpr double ReadableShare = 0.16;    // of a symbol's height, for the text under it
constexpr double LargestReadable = 4;     // millimeters
constexpr double LowestWithText = 8;      // millimeters

[[noreturn]] void Refuse(const std::string& why) { Raise(ErrorNumber::General, "BarcodeLabel.Print", why); }

// A color of the drawing: by name, #rrggbb, or rgb(r, g, b) with 0 to 255; black for any other.
QColor ColorOf(const QString& text) {
    static const QString part = QStringLiteral("[\\s,]*(\\d{1,3})");
    static const QRegularExpression parts("^rgb\\(" + part + part + part + "\\s*\\)$");
    const QRegularExpressionMatch found = parts.match(text);
    const auto value = [&found](int which) { return found.captured(which).toInt(); };
    const QColor color = found.hasMatch() ? QColor(value(1), value(2), value(3)) : QColor(text);
    return color.isValid() ? color : QColor(Qt::black);
}

// Restores the painter's state at destruction.
class SavedState {
public:
    explicit SavedState(QPainter& painter) : m_painter(painter) { m_painter.save(); }
    ~SavedState() { m_painter.restore(); }
    SavedState(const SavedState&) = delete;
    SavedState& operator=(const SavedState&) = delete;

private:
    QPainter& m_painter;
};

class LabelPainting {
public:
    LabelPainting(QPainter& painter, double dotsPerInch)
        : m_painter(painter), m_dotsPerMillimeter(dotsPerInch / MillimetersPerInch) {}

    void Paint(const FilledLabel& label) {
        PaintDrawing(label);
        for (const LabelBarcode& barcode : label.barcodes) {
            const SavedState state(m_painter);
            PaintBarcode(barcode.text, EnterArea(barcode.area));
        }
        for (const LabelText& text : label.texts) {
            const SavedState state(m_painter);
            PaintText(text, EnterArea(text.area));
        }
    }

private:
    int Dots(double millimeters) const { return static_cast<int>(std::lround(millimeters * m_dotsPerMillimeter)); }

    void PaintDrawing(const FilledLabel& label) {
        QSvgRenderer drawing(QByteArray::fromStdString(label.drawing));
        if (!drawing.isValid()) Refuse("The drawing of the label template can't be read.");
        drawing.setAspectRatioMode(Qt::KeepAspectRatio);
        const SavedState state(m_painter);
        m_painter.setRenderHint(QPainter::Antialiasing);
        drawing.render(&m_painter, QRectF(0, 0, label.width * m_dotsPerMillimeter, label.height * m_dotsPerMillimeter));
    }

    // Moves the painter's origin to the start of the text and aligns the x axis with it. Returns the box size in dots.
    QSize EnterArea(const LabelArea& area) {
        const QRect box(QPoint(Dots(area.box.left), Dots(area.box.top)),
                        QPoint(Dots(area.box.left + area.box.width) - 1, Dots(area.box.top + area.box.height) - 1));
        const bool right = area.quarterTurns == 1 || area.quarterTurns == 2;
        const bool bottom = area.quarterTurns >= 2;
        m_painter.translate(box.left() + (right ? box.width() : 0), box.top() + (bottom ? box.height() : 0));
        m_painter.rotate(90.0 * area.quarterTurns);
        const QSize size = area.quarterTurns % 2 == 0 ? box.size() : box.size().transposed();
        m_painter.setClipRect(QRect(QPoint(0, 0), size));
        return size;
    }

    int ModuleWidth(const BarcodeSymbol& symbol, int width) const {
        const int module = width / symbol.WidthWithQuietZones();
        const int least = std::max(2, static_cast<int>(std::ceil(NarrowestModule * m_dotsPerMillimeter)));
        if (module < least) {
            const double needed = least * symbol.WidthWithQuietZones() / m_dotsPerMillimeter;
            Refuse("The rectangle of the label template is too narrow for its barcode, which needs " +
                   std::to_string(static_cast<int>(std::ceil(needed))) + " mm on this printer.");
        }
        return module;
    }

    void PaintBarcode(const std::string& text, const QSize& size) {
        const BarcodeSymbol symbol = EncodeCode128(text);
        const int module = ModuleWidth(symbol, size.width());
        m_painter.fillRect(QRect(QPoint(0, 0), size), Qt::white);
        const int readable = ReadableSize(size.height());
        const int barHeight = size.height() - (readable > 0 ? readable + readable / 4 : 0);
        int x = (size.width() - symbol.WidthWithQuietZones() * module) / 2 + BarcodeSymbol::QuietZone * module;
        for (size_t k = 0; k < symbol.modules.size();) {
            size_t end = k;
            while (end < symbol.modules.size() && symbol.modules[end] == symbol.modules[k]) ++end;
            const int width = static_cast<int>(end - k) * module;
            if (symbol.modules[k]) m_painter.fillRect(x, 0, width, barHeight, Qt::black);
            x += width;
            k = end;
        }
        if (readable > 0) PaintReadable(text, readable, QRect(0, barHeight, size.width(), size.height() - barHeight));
    }

    int ReadableSize(int height) const {
        if (height < Dots(LowestWithText)) return 0;
        return std::clamp(static_cast<int>(height * ReadableShare), Dots(SmallestFont), Dots(LargestReadable));
    }

    void PaintReadable(const std::string& text, int size, const QRect& area) {
        QFont font = m_painter.font();
        font.setPixelSize(size);
        font.setLetterSpacing(QFont::PercentageSpacing, 110);
        m_painter.setFont(font);
        m_painter.setPen(Qt::black);
        m_painter.drawText(area, Qt::AlignHCenter | Qt::AlignBottom, ToQString(ReadableText(text)));
    }

    void PaintText(const LabelText& text, const QSize& size) {
        QFont font = m_painter.font();
        if (!text.family.empty()) font.setFamilies({ToQString(text.family), font.family()});
        font.setWeight(static_cast<QFont::Weight>(text.weight));
        font.setItalic(text.italic);
        const int largest = std::max(1, Dots(text.size));
        const FittedText fitted = FitText(ToQString(text.text), font, largest, Dots(SmallestFont), size);
        m_painter.setPen(ColorOf(ToQString(text.color)));
        m_painter.setFont(fitted.font);
        const QFontMetricsF metrics(fitted.font);
        qreal baseline = fitted.ascent;
        for (const QString& line : fitted.lines) {
            const qreal free = size.width() - metrics.horizontalAdvance(line);
            const qreal share = text.anchor == LabelAnchor::Start ? 0 : text.anchor == LabelAnchor::End ? 1 : 0.5;
            m_painter.drawText(QPointF(std::max(0.0, free) * share, baseline), line);
            baseline += fitted.lineHeight;
        }
    }

    QPainter& m_painter;
    double m_dotsPerMillimeter;
};

}  // namespace

void PaintLabel(QPainter& painter, const FilledLabel& label, double dotsPerInch) {
    const SavedState state(painter);
    LabelPainting(painter, dotsPerInch).Paint(label);
}

}  // namespace quellbrook
