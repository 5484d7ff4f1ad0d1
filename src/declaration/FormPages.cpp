#include "declaration/FormPages.h"

#include "data/Base.h"
#include "declaration/PagDeuda.h"
#include "declaration/PagIdentificacion.h"
#include "declaration/PagPercepcion.h"
#include "values/CheckDigits.h"
#include "values/Text.h"

#include <QTabWidget>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr int kAyudaDeuda = 1014;
constexpr int kAyudaIdentificacion = 1015;
constexpr int kAyudaPercepcion = 1020;

bool TomaFoco(const QWidget& control) {
    return control.isEnabled() && control.isVisible() && (control.focusPolicy() & Qt::TabFocus) != 0;
}

} // namespace

int AyudaDe(int pestania) {
    switch (pestania) {
    case Percepciones: return kAyudaPercepcion;
    case Deuda: return kAyudaDeuda;
    default: return kAyudaIdentificacion;
    }
}

LoEscrito PaginasDeDeclaracion::Lee() const {
    const Identificacion clave = identificacion.Lee();
    return {.periodo = clave.mostrado,
            .claveFija = !clave.periodoHabilitado,
            .montos = deuda.LeeMontos(),
            .pago = deuda.LeePago(),
            .rectifica = identificacion.Rectifica(),
            .pestania = fichas.currentIndex()};
}

void PaginasDeDeclaracion::Pon(const LoEscrito& escrito, const DeclaracionElegida& elegida) const {
    if (elegida.Modo() == ModoDeclaracion::Nueva)
        identificacion.Retoma(elegida, escrito.periodo);
    identificacion.PonRectifica(escrito.rectifica);
    Declaracion pagada;
    pagada.montos = escrito.montos;
    pagada.pago = escrito.pago;
    deuda.Muestra(pagada);
    fichas.setCurrentIndex(escrito.pestania);
}

void PaginasDeDeclaracion::ComoEnviadas(const DeclaracionElegida& elegida) const {
    constexpr int kLargoMinimo = 8;
    percepcion.MuestraEnviada();
    deuda.MuestraEnviada();
    const QString numero = Recorta(elegida.norden).toString();
    if (numero.size() >= kLargoMinimo)
        identificacion.PonDigitos(DigitosOrden(elegida.control, elegida.norden));
}

void PaginasDeDeclaracion::PonOrdenGuardado(Base& base, const ClaveDeclaracion& clave) const {
    Registros cabecera = base.Lee(u"SELECT * FROM HCAB "_s + clave.Condicion(), clave.Valores());
    if (cabecera.Siguiente())
        identificacion.PonOrden(cabecera.Texto(u"norden"));
}

void PaginasDeDeclaracion::Suelta(Base& base) const {
    try {
        percepcion.Suelta(base);
    } catch (const ErrorBase&) {
        return;
    }
}

void PaginasDeDeclaracion::EnfocaPrimerCampo() const {
    const QWidget* pagina = fichas.currentWidget();
    for (QWidget* control = pagina->nextInFocusChain(); control != pagina; control = control->nextInFocusChain()) {
        if (pagina->isAncestorOf(control) && TomaFoco(*control)) {
            control->setFocus();
            return;
        }
    }
}

void PaginasDeDeclaracion::ParaMirar() const {
    identificacion.DejaDeCambiar();
    percepcion.MuestraEnviada();
    deuda.DejaDeCambiar();
}

} // namespace xa518
