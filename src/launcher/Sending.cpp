#include "launcher/Sending.h"

#include "data/Base.h"
#include "data/RecordChecksum.h"
#include "data/Retry.h"
#include "data/Transaction.h"
#include "family/ChangeLog.h"
#include "family/StoredDeclaration.h"
#include "family/WorkLock.h"
#include "launcher/DeclarationList.h"
#include "launcher/SentNumbers.h"
#include "values/Dates.h"

#include <QHash>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The values that the sent copy has of its own, by column name in lower case.
using Sello = QHash<QString, QVariant>;

Veredicto Rechaza(const QString& motivo, const ClaveDeclaracion& clave) {
    return Veredicto::Critico(motivo.arg(clave.ruc.Texto(), clave.periodo.Texto()));
}

void Copia(Base& base, const ClaveDeclaracion& clave, const TablaDeDeclaracion& tabla, const Sello& sello) {
    const Tabla& destino = base.Describe(u'H' + tabla.nombre);
    const Tabla& origen = base.Describe(tabla.nombre);
    CopiaDeFilas copia{.tabla = destino.nombre,
                       .datos = {},
                       .desde = base.EnOrdenDeAlta(tabla.nombre, clave.Condicion()),
                       .valores = clave.Valores()};
    for (qsizetype i = 0; i + 1 < destino.columnas.size(); ++i) {
        const QString& columna = destino.columnas[i].nombre;
        const auto propio = sello.constFind(columna.toLower());
        if (propio != sello.cend())
            copia.datos.append({columna, u"?"_s, {*propio}});
        else
            copia.datos.append({columna, origen.columnas[origen.Indice(columna)].nombre});
    }
    CopiaConChecksum(base, copia, tabla.numericasEnviada);
}

void Mueve(Base& base, const ClaveDeclaracion& clave, const TablaDeDeclaracion& tabla, const Sello& sello) {
    Copia(base, clave, tabla, sello);
    base.Ejecuta(u"DELETE * FROM "_s + tabla.nombre + u' ' + clave.Condicion(), clave.Valores());
}

} // namespace

VeredictoDeEnvio Envio::Valida(const ClaveDeclaracion& clave, OtroOriginal otro) const {
    const TrabajoUnico trabajo(*m_base, clave);
    return Revisa(clave, otro);
}

ResultadoEnvio Envio::Envia(const ClaveDeclaracion& clave, OtroOriginal otro, const Firma& firma) {
    const TrabajoUnico trabajo(*m_base, clave);
    return ConReintentos([&] { return EnviaUnaVez(clave, otro, firma); });
}

ResultadoEnvio Envio::EnviaUnaVez(const ClaveDeclaracion& clave, OtroOriginal otro, const Firma& firma) {
    const Formulario& formulario = FormularioDe(m_formularios, clave.formulario);
    Transaccion transaccion = m_base->Comienza();
    if (VeredictoDeEnvio veredicto = Revisa(clave, otro); !veredicto)
        return {.veredicto = std::move(veredicto)};
    NumerosDeEnvio numeros(*m_base, formulario);
    const QString correl = numeros.TomaCorrel(clave);
    const QString control = numeros.TomaControl();
    const Sello sello{{u"correl"_s, correl},
                      {u"control"_s, control},
                      {u"norden"_s, u"0"_s},
                      {u"estado"_s, kEstadoEnviada},
                      {u"fec_env"_s, FormatFecha(firma.momento.date(), u"dd/mm/yyyy")}};
    const QString casillas = CasillasEnLineas(*m_base, clave);
    for (const TablaDeDeclaracion& tabla : formulario.tablas)
        Mueve(*m_base, clave, tabla, sello);
    Bitacora bitacora(*m_base);
    const QString marca =
        bitacora.Anota(firma, {.suceso = Suceso::Envio,
                               .clave = clave,
                               .antes = casillas,
                               .despues = casillas + u"\ncorrel=%1\ncontrol=%2"_s.arg(correl, control)});
    bitacora.Confirma(transaccion, marca);
    return {.correl = correl, .control = control};
}

QString Envio::OriginalYaEnviado(const ClaveDeclaracion& clave) const {
    Registros cabecera = m_base->Lee(u"SELECT rectifica FROM CAB "_s + clave.Condicion(), clave.Valores());
    if (!cabecera.Siguiente() || cabecera.Texto(0) == u"1")
        return {};
    return UltimaCopiaEnviada(*m_base, clave);
}

VeredictoDeEnvio Envio::Revisa(const ClaveDeclaracion& clave, OtroOriginal otro) const {
    Registros cabecera = m_base->Lee(u"SELECT estado FROM CAB "_s + clave.Condicion(), clave.Valores());
    if (!cabecera.Siguiente())
        return Rechaza(u"No existe una declaración registrada del RUC %1 y el período %2."_s, clave);
    if (cabecera.Entero(0) == kEstadoInconsistente)
        return Rechaza(u"La declaración del RUC %1 y el período %2 fue grabada con inconsistencias: no puede ser"
                       " enviada."_s,
                       clave);
    const QString enviada = otro == OtroOriginal::Rechazado ? OriginalYaEnviado(clave) : QString();
    if (!enviada.isEmpty())
        return VeredictoDeEnvio::Critico(
            u"La declaración del RUC %1 y el período %2 ya fue enviada (copia %3), y la registrada no dice"
            " que la rectifique o sustituya. Si lo hace, márquelo en el módulo y grábela de nuevo."_s.arg(
                clave.ruc.Texto(), clave.periodo.Texto(), enviada),
            CampoDeEnvio::Rectifica);
    return Veredicto::Bien();
}

} // namespace xa518
