// SPDX-License-Identifier: MIT
#include "app/board_drawing.h"

#include <QEvent>
#include <QPainter>
#include <QPainterPath>
#include <QPolygonF>
#include <cmath>
#include <vector>

namespace tolvex {

using namespace Qt::StringLiterals;

namespace {

// Lengths are units of the drawing; the pins of CN1 stand 17 apart, one line of text each.
constexpr QSizeF kCanvas(740, 392);
constexpr QRectF kBoard(26, 6, 452, 380);
constexpr QRectF kAddedBoard(518, 16, 214, 360);
constexpr double kLine = 17;
constexpr double kConnectorX = 398;
constexpr double kConnectorTop = 239;
constexpr int kConnectorPins = 6;
constexpr QRectF kPinPlate(412, kConnectorTop, 56, kLine* kConnectorPins);

constexpr QRgb kPcb = 0xff13504c, kPcbEdge = 0xff4d8f85, kPcbTrace = 0xff236a62;
constexpr QRgb kAdded = 0xffe3cf9e, kAddedEdge = 0xffa98d52, kAddedHole = 0xffc3a96f;
constexpr QRgb kBody = 0xff262c34, kBodyEdge = 0xff68737f, kBodyInner = 0xff39424d;
constexpr QRgb kContact = 0xffd6b45c, kMetal = 0xffb4bdc7, kMetalEdge = 0xff6f7a86;
constexpr QRgb kOnDark = 0xfff6f8f7, kOnLight = 0xff3a2c10, kPlate = 0xfff3f1e4;
constexpr QRgb kRed = 0xffff4a3d, kRedEdge = 0xff5e1010;
constexpr QRgb kBlue = 0xff3d8ee6, kBlueEdge = 0xff1b4b85;

struct Socket {
    QPointF firstPin;  ///< the pin that is leftmost (or topmost) in the first row
    int pinsPerRow;
    double pitch;
    double rowDistance;
    bool upright;   ///< rows run top to bottom
    bool notchEnd;  ///< the notch is at the right or bottom end
};

constexpr Socket kSockets[] = {
    {{118, 60}, 20, 16, 66, false, false},  // 40 pins, in the lever socket
    {{72, 268}, 10, 15, 44, false, false},  // 20 pins
    {{270, 268}, 4, 15, 44, false, true},   // 8 pins: pin 1 top right, 5 bottom left
    {{636, 96}, 14, 17, 44, true, false},   // 28 pins, added: pin 1 top left
};

struct NameRow {
    QString objectName;
    QString text;
    QPointF centre;
    QRgb colour;
};

std::vector<NameRow> NameRows() {
    return {
        {u"Label1"_s, u"28pin Socket"_s, {658, 50}, kOnLight},
        {u"Label1"_s, u"ZIP Socket"_s, {270, 27}, kOnDark},
        {u"Label1"_s, u"8pin"_s, {292.5, 290}, kOnDark},
        {u"Label1"_s, u"20pin"_s, {139.5, 290}, kOnDark},
        {u"Label1"_s, u"40pin"_s, {270, 93}, kOnDark},
        {u"Label6"_s, u"CN1"_s, {398, 225}, kOnDark},
        {u"Label5"_s, u" 4MHz  OSC"_s, {572, 275}, kOnLight},
    };
}

struct Wire {
    bool red;
    std::vector<QPointF> corners;
};

/// The y of a connector pin, 0 to 5: GND, RESET, VDD, SCK, MISO, MOSI.
constexpr double PinY(int pin) {
    return kConnectorTop + kLine * (pin + 0.5);
}

/// From the connector's left to the 8-pin socket (4 GND, 1 RESET, 8 VDD, 7 SCK, 6 MISO, 5 MOSI),
/// and from the right of the pin names to the 28-pin one (8, 1, 7, 19, 18, 17).
std::vector<Wire> Wires() {
    const double from = kConnectorX;
    const double out = kPinPlate.right();
    return {
        {true, {{270, 268}, {270, 236}, {366, 236}, {366, PinY(0)}, {from, PinY(0)}}},
        {true, {{315, 268}, {315, 248}, {354, 248}, {354, PinY(1)}, {from, PinY(1)}}},
        {true, {{315, 312}, {315, 332}, {342, 332}, {342, PinY(2)}, {from, PinY(2)}}},
        {true, {{300, 312}, {300, 344}, {352, 344}, {352, PinY(3)}, {from, PinY(3)}}},
        {true, {{285, 312}, {285, 356}, {362, 356}, {362, PinY(4)}, {from, PinY(4)}}},
        {true, {{270, 312}, {270, 368}, {372, 368}, {372, PinY(5)}, {from, PinY(5)}}},
        {false, {{out, PinY(1)}, {488, PinY(1)}, {488, 96}, {636, 96}}},
        {false, {{out, PinY(2)}, {498, PinY(2)}, {498, 198}, {636, 198}}},
        {false, {{out, PinY(0)}, {508, PinY(0)}, {508, 215}, {636, 215}}},
        {false, {{out, PinY(5)}, {488, PinY(5)}, {488, 342}, {702, 342}, {702, 283}, {680, 283}}},
        {false, {{out, PinY(4)}, {498, PinY(4)}, {498, 353}, {712, 353}, {712, 266}, {680, 266}}},
        {false, {{out, PinY(3)}, {508, PinY(3)}, {508, 364}, {722, 364}, {722, 249}, {680, 249}}},
    };
}

void DrawBox(QPainter& painter, const QRectF& box, double radius, QRgb fill, QRgb edge,
             double edgeWidth = 1.2) {
    painter.setPen(QPen(QColor::fromRgba(edge), edgeWidth));
    painter.setBrush(QColor::fromRgba(fill));
    painter.drawRoundedRect(box, radius, radius);
}

void DrawDot(QPainter& painter, QPointF centre, double radius, QRgb colour) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(QColor::fromRgba(colour));
    painter.drawEllipse(centre, radius, radius);
}

/// Copper of the board's own, so that it looks like one: it has no meaning.
void DrawTraces(QPainter& painter) {
    painter.setPen(
        QPen(QColor::fromRgba(kPcbTrace), 2.2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    for (int lane = 0; lane < 6; ++lane) {
        const double shift = 8 * lane;
        painter.drawPolyline(QPolygonF({{118 + 2 * shift, 126},
                                        {118 + 2 * shift, 158 + shift / 2},
                                        {100 + 2 * shift, 176 + shift / 2},
                                        {72 + 1.875 * shift, 200 + shift / 2},
                                        {72 + 1.875 * shift, 268}}));
        painter.drawPolyline(QPolygonF({{214 + 2 * shift, 126},
                                        {214 + 2 * shift, 148 + std::abs(shift - 20) / 3},
                                        {237.0 + 7 * lane, 168 + std::abs(shift - 20) / 3},
                                        {237.0 + 7 * lane, 190}}));
    }
}

/// The board's own controller and its lamp.
void DrawController(QPainter& painter) {
    painter.setPen(QPen(QColor::fromRgba(kContact), 2.4));
    for (int pin = 0; pin < 6; ++pin) {
        const double along = 237.0 + 7 * pin;
        painter.drawLine(QPointF(along, 177), QPointF(along, 225));
        painter.drawLine(QPointF(230.5, 183.5 + 7 * pin), QPointF(278.5, 183.5 + 7 * pin));
    }
    DrawBox(painter, {234.5, 181, 40, 40}, 3, kBody, kBodyEdge);
    DrawDot(painter, {241, 188}, 2, kBodyEdge);
    DrawBox(painter, {432, 168, 20, 20}, 10, 0xff7fd06a, 0xffc4efb6, 1.5);
    DrawDot(painter, {439, 175}, 3, 0xffd9f7d0);
}

void DrawBoard(QPainter& painter) {
    DrawBox(painter, kBoard, 10, kPcb, kPcbEdge, 2);
    DrawTraces(painter);
    for (const QPointF hole :
         {QPointF(42, 22), QPointF(462, 22), QPointF(42, 370), QPointF(462, 370)}) {
        DrawDot(painter, hole, 8, kMetal);
        DrawDot(painter, hole, 4.5, kBodyInner);
    }
    DrawController(painter);
    // The serial plug at the edge.
    DrawBox(painter, {6, 168, 40, 76}, 4, kMetal, kMetalEdge, 1.5);
    DrawBox(painter, {2, 178, 18, 56}, 3, kBodyEdge, kMetalEdge, 1.5);
}

void DrawAddedBoard(QPainter& painter) {
    DrawBox(painter, kAddedBoard, 6, kAdded, kAddedEdge, 2);
    for (double y = kAddedBoard.top() + 12; y < kAddedBoard.bottom() - 6; y += 12) {
        for (double x = kAddedBoard.left() + 11; x < kAddedBoard.right() - 6; x += 12) {
            DrawDot(painter, {x, y}, 1.3, kAddedHole);
        }
    }
}

QRectF PinArea(const Socket& socket) {
    const double length = socket.pitch * (socket.pinsPerRow - 1);
    return socket.upright ? QRectF(socket.firstPin, QSizeF(socket.rowDistance, length))
                          : QRectF(socket.firstPin, QSizeF(length, socket.rowDistance));
}

void DrawLeverSocket(QPainter& painter, const Socket& socket) {
    const QRectF body = PinArea(socket).adjusted(-18, -14, 18, 14);
    QPainterPath lever(QPointF(body.left() + 6, body.top() + 10));
    lever.lineTo(body.left() - 34, body.top() + 10);
    lever.lineTo(body.left() - 34, body.bottom() - 8);
    for (const auto& [colour, width] : {std::pair(kMetalEdge, 6.5), std::pair(kMetal, 4.0)}) {
        painter.setPen(
            QPen(QColor::fromRgba(colour), width, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter.setBrush(Qt::NoBrush);
        painter.drawPath(lever);
    }
    DrawDot(painter, {body.left() - 34, body.bottom() - 8}, 6, kContact);
    DrawBox(painter, body, 5, 0xff2f6f93, 0xff7fb0cc, 1.5);
}

void DrawSocket(QPainter& painter, const Socket& socket) {
    const QRectF pins = PinArea(socket);
    const QRectF body = pins.adjusted(-11, -9, 11, 9);
    DrawBox(painter, body, 3, kBody, kBodyEdge);
    const QRectF inner =
        socket.upright ? body.adjusted(18, 5, -18, -5) : body.adjusted(5, 16, -5, -16);
    DrawBox(painter, inner, 2, kBodyInner, kBodyEdge, 1);

    const double end = socket.notchEnd ? 1 : 0;
    const QPointF notch = socket.upright
                              ? QPointF(inner.center().x(), inner.top() + end * inner.height())
                              : QPointF(inner.left() + end * inner.width(), inner.center().y());
    const double startAngle = (socket.upright ? 180 : 270) + 180 * end;
    painter.setPen(QPen(QColor::fromRgba(kBodyEdge), 1));
    painter.setBrush(QColor::fromRgba(kBody));
    painter.drawChord(QRectF(notch - QPointF(5, 5), QSizeF(10, 10)),
                      static_cast<int>(startAngle) * 16, 180 * 16);

    for (int pin = 0; pin < socket.pinsPerRow; ++pin) {
        for (const double row : {0.0, socket.rowDistance}) {
            const double along = pin * socket.pitch;
            const QPointF offset = socket.upright ? QPointF(row, along) : QPointF(along, row);
            DrawDot(painter, socket.firstPin + offset, 4, kContact);
            DrawDot(painter, socket.firstPin + offset, 1.8, kBody);
        }
    }
}

void DrawConnector(QPainter& painter) {
    DrawBox(painter, {kConnectorX - 10, kConnectorTop, 20, kLine * kConnectorPins}, 2, kBody,
            kBodyEdge);
    for (int pin = 0; pin < kConnectorPins; ++pin) {
        painter.fillRect(QRectF(kConnectorX - 4, PinY(pin) - 4, 8, 8), QColor::fromRgba(kContact));
    }
    DrawBox(painter, kPinPlate, 3, kPlate, kMetalEdge, 1);
}

/// A metal can with its two legs at XTAL1 and XTAL2.
void DrawOscillator(QPainter& painter) {
    painter.setPen(QPen(QColor::fromRgba(kMetalEdge), 3, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QPointF(590, 232), QPointF(636, 232));
    painter.drawLine(QPointF(590, 249), QPointF(636, 249));
    DrawBox(painter, {548, 225, 48, 31}, 13, kMetal, kMetalEdge, 1.5);
    DrawBox(painter, {554, 230, 36, 21}, 9, 0xffd7dde3, kMetalEdge, 1);
}

/// Each wire has a dark edge, so that crossing wires pass over each other instead of joining.
void DrawWire(QPainter& painter, const Wire& wire) {
    const QPolygonF line(QList<QPointF>(wire.corners.begin(), wire.corners.end()));
    painter.setBrush(Qt::NoBrush);
    for (const bool edge : {true, false}) {
        const QRgb colour = wire.red ? (edge ? kRedEdge : kRed) : (edge ? kBlueEdge : kBlue);
        painter.setPen(QPen(QColor::fromRgba(colour), edge ? 4.6 : 2.8, Qt::SolidLine, Qt::RoundCap,
                            Qt::RoundJoin));
        painter.drawPolyline(line);
    }
    const QPointF solderedAt = wire.red ? line.first() : line.last();
    DrawDot(painter, solderedAt, 4.6, wire.red ? kRedEdge : kBlueEdge);
    DrawDot(painter, solderedAt, 3.6, wire.red ? kRed : kBlue);
}

}  // namespace

BoardDrawing::BoardDrawing(const QString& pinNames, QWidget* parent) : QWidget(parent) {
    setObjectName(u"BoardDrawing"_s);
    setAccessibleName(u"ライタボードの図"_s);
    setAccessibleDescription(
        u"赤線：CN1から8pinソケットへの結線。青線：CN1から追加した28pinソケットへの結線。"_s);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    AddLabels(pinNames);
    PlaceLabels();
}

QSize BoardDrawing::sizeHint() const {
    return (kCanvas * scale_).toSize();
}

void BoardDrawing::AddLabels(const QString& pinNames) {
    const auto add = [this](const QString& name, const QString& text, QRgb colour) {
        auto* label = new QLabel(this);
        label->setObjectName(name);
        label->setTextFormat(Qt::PlainText);
        label->setText(text);
        label->setAlignment(Qt::AlignCenter);
        QPalette colours = label->palette();
        colours.setColor(QPalette::WindowText, QColor::fromRgba(colour));
        colours.setColor(QPalette::Window, QColor::fromRgba(kAdded));
        label->setPalette(colours);
        return label;
    };
    for (const NameRow& row : NameRows()) {
        names_ << add(row.objectName, row.text, row.colour);
        // Off the holes of the added board.
        names_.last()->setAutoFillBackground(row.colour == kOnLight);
    }
    label4_ = add(u"Label4"_s, pinNames, kOnLight);
}

void BoardDrawing::PlaceLabels() {
    const QSize pinNames = label4_->sizeHint();
    scale_ = pinNames.height() / (kLine * kConnectorPins);
    const auto place = [this](QLabel* label, QPointF centre) {
        QRect box(QPoint(), label->sizeHint());
        box.moveCenter((centre * scale_).toPoint());
        label->setGeometry(box);
    };
    const std::vector<NameRow> rows = NameRows();
    for (std::size_t row = 0; row < rows.size(); ++row) {
        place(names_[static_cast<qsizetype>(row)], rows[row].centre);
    }
    place(label4_, kPinPlate.center());
    updateGeometry();
    update();
}

void BoardDrawing::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange) {
        PlaceLabels();
    }
}

void BoardDrawing::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(scale_, scale_);
    DrawBoard(painter);
    DrawAddedBoard(painter);
    DrawLeverSocket(painter, kSockets[0]);
    for (const Socket& socket : kSockets) {
        DrawSocket(painter, socket);
    }
    DrawConnector(painter);
    DrawOscillator(painter);
    for (const Wire& wire : Wires()) {
        DrawWire(painter, wire);
    }
}

}  // namespace tolvex
