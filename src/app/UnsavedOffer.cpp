#include "app/UnsavedOffer.h"

#include "data/Base.h"
#include "declaration/TypedForm.h"
#include "family/Process.h"
#include "family/WorkLock.h"
#include "platform/Clock.h"
#include "platform/Notices.h"
#include "widgets/LongTask.h"

#include <utility>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QString NombreDe(Base& base, const Ruc& ruc) {
    Registros fila = base.Lee(u"SELECT Nombre FROM CONT WHERE Tip_doc_d = 6 AND Doc_id_d = ?"_s, {ruc.Texto()});
    return fila.Siguiente() ? fila.Texto(0) : QString();
}

bool SeLee(const FilaSinGrabar& hallada) {
    return hallada.esDeEstaVersion && hallada.fila.momento.isValid() && LoEscrito::DeJson(hallada.fila.escrito);
}

} // namespace

OfertaDeRetomar::OfertaDeRetomar(Proceso& proceso, Avisos& avisos, Abre abre)
    : m_proceso(&proceso), m_avisos(&avisos), m_abre(std::move(abre)) {}

void OfertaDeRetomar::Pregunta(const AperturaPedida& pedida, std::function<void()> sigue) const {
    Base& base = *m_proceso->baseDatos;
    const std::optional<FilaSinGrabar> hallada = base.SoloLectura() ? std::nullopt : TablaSinGrabar(base).Lee();
    if (!hallada || (pedida.elegida && !hallada->fila.EsDe(pedida.elegida->clave)))
        return sigue();
    Atiende(pedida, *hallada, std::move(sigue));
}

void OfertaDeRetomar::Atiende(const AperturaPedida& pedida, const FilaSinGrabar& hallada,
                              std::function<void()> sigue) const {
    Base& base = *m_proceso->baseDatos;
    if (!SeLee(hallada)) {
        const QString nombre = u"ilegible-"_s + m_proceso->reloj.Ahora().toString(u"yyyyMMdd-HHmmss"_s);
        const QString aviso = u"La declaración que quedó sin grabar no se puede leer: es de otra versión del programa o"
                              " está dañada. Quedó apartada con el nombre «%1»."_s.arg(nombre);
        return Aparta(pedida, nombre, [avisos = m_avisos, aviso, sigue = std::move(sigue)] {
            avisos->Muestra({Icono::Exclamacion, aviso, {}});
            sigue();
        });
    }
    const QString pregunta = u"Hay una declaración sin grabar de %1. ¿Retomarla?"_s.arg(
        Descripcion(base, hallada.fila, TablaSinGrabar(base).Comprobantes()));
    switch (m_avisos->PreguntaConOtra({Icono::Pregunta, pregunta, {}}, u"&Más tarde"_s)) {
    case Respuesta::Si: return Retoma(pedida, hallada.fila);
    case Respuesta::No: return Aparta(pedida, {}, std::move(sigue));
    case Respuesta::Otra: return;
    }
}

void OfertaDeRetomar::Aparta(const AperturaPedida& pedida, const QString& nombre, std::function<void()> despues) const {
    auto marca = std::make_shared<TrabajoUnico>(
        *m_proceso->baseDatos, ClaveDeclaracion{.ruc = {}, .periodo = {}, .formulario = m_proceso->numFormulario});
    LanzaTarea(
        pedida.ventana, {.titulo = u"Apartando la declaración"_s},
        [aparte = ProcesoAparte(*m_proceso), nombre, ahora = m_proceso->reloj.Ahora()](Avance& /*avance*/) {
            TablaSinGrabar(*aparte.Abre().baseDatos).Aparta(ahora, nombre);
        },
        [marca = std::move(marca), despues = std::move(despues)]() mutable {
            marca.reset(); // what follows takes the work tables for itself
            despues();
        });
}

void OfertaDeRetomar::OfreceApartadas(const AperturaPedida& pedida) const {
    Base& base = *m_proceso->baseDatos;
    const QList<Apartada> apartadas = TablaSinGrabar(base).Apartadas();
    if (apartadas.isEmpty())
        m_avisos->Muestra({Icono::Informacion,
                           u"No hay declaraciones apartadas. Una declaración sin grabar que no se retoma queda apartada"
                           " durante %1 días."_s.arg(kDiasApartada),
                           {}});
    for (const Apartada& apartada : apartadas) {
        const QString pregunta = u"Apartada el %1: la declaración sin grabar de %2. ¿Retomarla?"_s.arg(
            apartada.cuando.toString(u"dd/MM/yyyy HH:mm"_s), Descripcion(base, apartada.fila, apartada.comprobantes));
        const Respuesta respuesta = m_avisos->PreguntaConOtra({Icono::Pregunta, pregunta, {}}, u"&Cancelar"_s);
        if (respuesta == Respuesta::No)
            continue;
        if (respuesta == Respuesta::Si) // into the place of another one that isn't saved either
            Pregunta(pedida, [yo = *this, pedida, copia = apartada.copia] { yo.Devuelve(pedida, copia); });
        return;
    }
}

void OfertaDeRetomar::Devuelve(const AperturaPedida& pedida, int copia) const {
    auto marca = std::make_shared<TrabajoUnico>(
        *m_proceso->baseDatos, ClaveDeclaracion{.ruc = {}, .periodo = {}, .formulario = m_proceso->numFormulario});
    LanzaTarea(
        pedida.ventana, {.titulo = u"Devolviendo la declaración"_s},
        [aparte = ProcesoAparte(*m_proceso), copia](Avance& /*avance*/) {
            TablaSinGrabar(*aparte.Abre().baseDatos).Devuelve(copia);
        },
        [marca = std::move(marca), yo = *this, pedida]() mutable {
            marca.reset();
            if (const std::optional<FilaSinGrabar> devuelta = TablaSinGrabar(*yo.m_proceso->baseDatos).Lee())
                yo.Retoma(pedida, devuelta->fila);
        });
}

void OfertaDeRetomar::Retoma(const AperturaPedida& pedida, const SinGrabar& fila) const {
    AperturaPedida retomada = pedida;
    retomada.elegida = DeclaracionElegida{
        .clave = fila.clave, .nombre = NombreDe(*m_proceso->baseDatos, fila.clave.ruc), .retomada = fila};
    m_abre(retomada);
}

void OfertaDeRetomar::BorraViejas() const {
    if (!m_proceso->baseDatos->SoloLectura())
        TablaSinGrabar(*m_proceso->baseDatos).BorraViejas(m_proceso->reloj.Ahora());
}

std::optional<Mensaje> AvisoDeLoIncompleto(const DetalleCompletado& completado) {
    QStringList partes;
    if (!completado.sinNombre.isEmpty())
        partes.append(
            u"El programa se cerró antes de que se aceptaran los datos de %1: sus comprobantes están, pero falta"
            " su nombre. Ábralo con Modificar y complételo."_s.arg(completado.sinNombre.join(u", "_s)));
    if (completado.pagosSinComprobante > 0)
        partes.append(u"Quedaron %1 comprobantes de pago de un comprobante de percepción que no se llegó a aceptar."
                      " Ingréselo otra vez con la misma serie y el mismo número, y los tendrá."_s.arg(
                          completado.pagosSinComprobante));
    if (partes.isEmpty())
        return std::nullopt;
    return Mensaje{Icono::Exclamacion, partes.join(u"\n\n"_s), {}};
}

} // namespace xa518
