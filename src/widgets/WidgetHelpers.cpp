#include "widgets/WidgetHelpers.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QFontMetrics>
#include <QKeyEvent>
#include <QLabel>
#include <QTextDocument>

#include <algorithm>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kLetras = 52;

/// The drop-down is told apart from the closed box, which keeps the width of its layout.
void FijaDesplegable(QComboBox& combo, int ancho) {
    combo.view()->setTextElideMode(Qt::ElideNone);
    combo.view()->setMinimumWidth(std::max(ancho, 0));
}

} // namespace

void CentraControl(const QWidget& marco, QWidget& control) {
    control.move((marco.width() - control.width()) / 2, (marco.height() - control.height()) / 2);
}

int AnchoPromedio(const QWidget& ventana) {
    static const QString letras = u"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz"_s;
    return ventana.fontMetrics().horizontalAdvance(letras) / kLetras;
}

void AjustaCombo(const QWidget& ventana, QComboBox& combo) {
    qsizetype mayor = 0;
    for (int i = 0; i < combo.count(); ++i)
        mayor = std::max(mayor, combo.itemText(i).size());
    FijaAnchoCombo(ventana, combo, static_cast<int>(mayor));
}

void FijaAnchoCombo(const QWidget& ventana, QComboBox& combo, int caracteres) {
    FijaDesplegable(combo, (caracteres - 2) * AnchoPromedio(ventana));
}

void EnviaTecla(const QString& tecla) {
    QWidget* campo = QApplication::focusWidget();
    if (tecla != u"TAB" || !campo)
        return;
    QKeyEvent pulsada(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier, u"\t"_s);
    QCoreApplication::sendEvent(campo, &pulsada);
}

void Impide(QWidget& control, const QString& motivo) {
    control.setEnabled(false);
    PonSugerencia(control, motivo);
    control.setStatusTip(motivo);
}

void Impide(QAction& orden, const QString& motivo) {
    orden.setEnabled(false);
    orden.setToolTip(motivo);
    orden.setStatusTip(motivo);
}

/// A tip shows markup wherever it finds some; a screen reader takes the description instead.
void PonSugerencia(QWidget& control, const QString& texto) {
    control.setToolTip(texto.isEmpty() ? texto : Qt::convertFromPlainText(texto));
    control.setAccessibleDescription(texto);
}

void ComoTextoLlano(const QWidget& forma) {
    for (QLabel* rotulo : forma.findChildren<QLabel*>())
        rotulo->setTextFormat(Qt::PlainText);
}

void Enfoca(QWidget& campo) {
    if (campo.isEnabled())
        campo.setFocus(Qt::OtherFocusReason);
}

bool RecorreLista(int tecla) {
    return tecla == Qt::Key_Up || tecla == Qt::Key_Down || tecla == Qt::Key_PageUp || tecla == Qt::Key_PageDown ||
           tecla == Qt::Key_Home || tecla == Qt::Key_End;
}

void EjecutaSobre(QWidget& ventana, QDialog& dialogo) {
    dialogo.exec();
    ventana.activateWindow();
}

} // namespace xa518
