#include "widgets/MaskedField.h"

#include "widgets/FieldFilters.h"

#include <QFocusEvent>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr QChar kHueco = u'_';

} // namespace

CampoMascara::CampoMascara(const QString& mascara, QWidget* padre) : QLineEdit(padre) {
    setInputMask(mascara + u';' + kHueco);
    SoloDigitos(*this, u"Sólo números; las barras ya están"_s);
}

void CampoMascara::setText(const QString& texto) {
    QLineEdit::setText(texto);
}

QSize CampoMascara::minimumSizeHint() const {
    const QString digitos(displayText().size(), u'0');
    return QLineEdit::minimumSizeHint() + QSize(fontMetrics().horizontalAdvance(digitos), 0);
}

/// Coming from another field: a whole text is selected, to be typed over; otherwise the caret stands where the next
/// digit belongs.
void CampoMascara::focusInEvent(QFocusEvent* evento) {
    QLineEdit::focusInEvent(evento);
    if (evento->reason() == Qt::MouseFocusReason || evento->reason() == Qt::ActiveWindowFocusReason)
        return;
    if (EstaCompleto())
        selectAll();
    else
        setCursorPosition(static_cast<int>(displayText().indexOf(kHueco)));
}

/// A click anywhere in an untouched field starts at its beginning.
void CampoMascara::mouseReleaseEvent(QMouseEvent* evento) {
    QLineEdit::mouseReleaseEvent(evento);
    const QString texto = displayText();
    if (std::none_of(texto.begin(), texto.end(), [](QChar c) { return c.isDigit(); }))
        setCursorPosition(0);
}

CampoPeriodo::CampoPeriodo(QWidget* padre) : CampoMascara(u"99/9999"_s, padre) {}

CampoFecha::CampoFecha(QWidget* padre) : CampoMascara(u"99/99/9999"_s, padre) {}

} // namespace xa518
