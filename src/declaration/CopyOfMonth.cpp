#include "declaration/CopyOfMonth.h"

#include "data/FollowedWork.h"
#include "declaration/PagDeuda.h"
#include "declaration/PagIdentificacion.h"
#include "declaration/StoredBoxes.h"
#include "family/Process.h"
#include "form518/RowCounts.h"
#include "form518/WorkTables.h"
#include "platform/Notices.h"
#include "values/Format.h"
#include "widgets/LongTask.h"

#include <QSignalBlocker>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

bool MismoMes(const ClaveDeclaracion& una, const ClaveDeclaracion& otra) {
    return una.ruc == otra.ruc && una.periodo == otra.periodo && una.formulario == otra.formulario;
}

/// The boxes as a save would write them now.
ValoresDeCasillas CasillasDe(const Declaracion& declaracion) {
    const Pago& pago = declaracion.pago;
    const auto entero = [](const std::optional<Importe>& total) {
        return total ? Format(*total, u"##############0") : QString();
    };
    ValoresDeCasillas valores{{501, QString::number(declaracion.clientes)},
                              {502, entero(declaracion.base)},
                              {503, entero(declaracion.percepcion)},
                              {871, Digito(declaracion.rectifica)},
                              {999, Letra(pago.forma)},
                              {15, pago.ConBanco() ? pago.banco : QString()},
                              {12, pago.numeroCheque}};
    for (const int casilla : kCasillasMonto)
        valores.insert(casilla, declaracion.montos.Texto(casilla));
    return valores;
}

Declaracion LeeCopia(Base& base, const ClaveDeclaracion& enviada) {
    Declaracion copia;
    copia.clave = enviada;
    CargaCasillas(base, copia);
    copia.rectifica = Rectificacion::Si;
    return copia;
}

} // namespace

CopiaDelMes::CopiaDelMes(Avisos& avisos, const ControlesDeCopia& controles)
    : m_avisos(&avisos), m_controles(controles) {
    m_controles.orden.hide();
}

void CopiaDelMes::Rectifica(const ClaveDeclaracion& enviada) {
    m_preferida = enviada;
    if (!m_controles.identificacion.PonClave(enviada))
        m_avisos->Muestra({Icono::Exclamacion,
                           u"El declarante %1 no está entre los suyos: no puede rectificar su declaración."_s.arg(
                               enviada.ruc.Texto()),
                           {}});
}

void CopiaDelMes::Busca(Base& base, const ClaveDeclaracion& clave) {
    m_copia.reset();
    if (m_preferida && MismoMes(*m_preferida, clave))
        m_copia = LaCopia(base, *m_preferida);
    if (!m_copia)
        m_copia = UltimaCopia(base, clave);
    m_controles.orden.setVisible(m_copia.has_value());
}

bool CopiaDelMes::Ofrece(Base& base, const ClaveDeclaracion& clave) {
    Busca(base, clave);
    const QString mes = clave.ruc.Texto() + clave.periodo.Texto();
    if (!m_copia || !m_controles.identificacion.Lee().periodoHabilitado || m_ofrecida == mes)
        return false;
    m_ofrecida = mes;
    const QString texto =
        u"El período %1 de este declarante ya fue enviado (%2).\n\n¿Desea traer sus clientes, comprobantes y casillas"
        " para rectificarlo?"_s.arg(clave.periodo.EnPantalla(), m_copia->Texto());
    return m_avisos->Pregunta({Icono::Pregunta, texto, {}}) == Respuesta::Si;
}

void CopiaDelMes::Trae(QWidget& ventana, const Proceso& proceso, const std::function<void()>& alTraer) {
    m_controles.identificacion.CongelaClave();
    CorreTarea(
        ventana, {.titulo = u"Trayendo lo enviado"_s},
        [aparte = ProcesoAparte(proceso), enviada = m_copia->clave](Avance& avance) {
            const Proceso suyo = aparte.Abre();
            Base& base = *suyo.baseDatos;
            const TrabajoSeguido seguido(base, avance, FilasDelDetalle(base, enviada));
            TablasTrabajo(base).Reconstruye(enviada);
            return LeeCopia(base, enviada);
        },
        [this, alTraer](const Declaracion& copia) {
            Muestra(copia);
            alTraer();
        });
}

/// Nobody has to be reminded to type what has been brought.
void CopiaDelMes::Muestra(const Declaracion& copia) const {
    const QSignalBlocker callada(&m_controles.identificacion);
    m_controles.identificacion.PonRectifica(copia.rectifica);
    m_controles.deuda.Muestra(copia);
}

bool CopiaDelMes::AdmiteGrabar(Base& base, const Declaracion& declaracion) {
    Busca(base, declaracion.clave);
    if (m_otroOriginal || !m_copia || declaracion.rectifica == Rectificacion::Si)
        return true;
    const QString texto =
        u"El período %1 ya fue enviado (%2), y esta declaración no dice que rectifique o sustituya a otra. Si la graba"
        " así, queda como otro original del mismo período.\n\n¿Desea grabarla así?"_s.arg(
            declaracion.clave.periodo.EnPantalla(), m_copia->Texto());
    m_otroOriginal = m_avisos->Pregunta({Icono::Pregunta, texto, {}}, Respuesta::No) == Respuesta::Si;
    return m_otroOriginal;
}

PedidoDeComparacion CopiaDelMes::Pedido(const Declaracion& abierta, const QString& nombre) const {
    return {.copia = *m_copia, .nombre = nombre, .abierta = CasillasDe(abierta)};
}

Mensaje RecordatorioDeRectificar() {
    return {Icono::Exclamacion,
            u"Recuerde que debe ingresar toda la información declarada anteriormente inclusive la que no "
            "esta rectificando o sustituyendo."_s,
            {}};
}

} // namespace xa518
