#include "form518/WorkRuns.h"

#include "data/Base.h"
#include "form518/WorkOrder.h"

#include <algorithm>
#include <utility>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

constexpr std::pair<FinDeCorrida, QStringView> kFines[] = {{FinDeCorrida::Completa, u"completa"},
                                                           {FinDeCorrida::Cancelada, u"cancelada"},
                                                           {FinDeCorrida::Fallida, u"fallida"}};

QString TextoDe(FinDeCorrida fin) {
    const auto* hallado =
        std::find_if(std::begin(kFines), std::end(kFines), [&](const auto& f) { return f.first == fin; });
    return hallado->second.toString();
}

std::optional<FinDeCorrida> FinDe(const QString& texto) {
    const auto* hallado =
        std::find_if(std::begin(kFines), std::end(kFines), [&](const auto& f) { return f.second == texto; });
    return hallado == std::end(kFines) ? std::nullopt : std::optional(hallado->first);
}

std::optional<qint64> Cuenta(const Registros& fila, QStringView columna) {
    const int lugar = fila.Columna(columna);
    return fila.EsNulo(lugar) ? std::nullopt : std::optional(fila.Entero(lugar));
}

} // namespace

int CorridasTrabajo::Empieza(const ArchivoImportado& archivo, const QString& usuario, const QDateTime& hora) {
    CierraInterrumpidas();
    const std::optional<CorridaTrabajo> anterior = Ultima();
    const int numero = anterior ? anterior->numero + 1 : 1;
    const OrdenDeTrabajo orden(*m_base);
    const auto desde = [&](const TablaDeTrabajo& tabla) { return std::max(orden.Ultimo(tabla), orden.Piso(tabla)); };
    m_base->Ejecuta(
        u"INSERT INTO TMPF518CORRIDA (corrida, archivo, huella, bytes, hora, usuario, desde_cab, desde_det, "
        "desde_cp) VALUES (?, ?, ?, ?, ?, ?, ?, ?, ?)"_s,
        {numero, archivo.nombre, archivo.huella, QString::number(archivo.bytes), hora.toString(Qt::ISODate), usuario,
         desde(TablaDeClientes()), desde(TablaDeComprobantes()), desde(TablaDePagos())});
    m_base->Ejecuta(u"INSERT INTO TMPF518PREVIO (corrida, orden, ctd_docs, mto_base_p, mto_imp_p, tocado) "
                    "SELECT %1, %2, ctd_docs, mto_base_p, mto_imp_p, 0 FROM TMPF518PCAB"_s.arg(QString::number(numero),
                                                                                               orden.Columna()));
    return numero;
}

void CorridasTrabajo::Termina(int numero, FinDeCorrida fin, qint64 transferidos, qint64 rechazados) {
    m_base->Ejecuta(u"UPDATE TMPF518CORRIDA SET fin = ?, transferidos = ?, rechazados = ? WHERE corrida = ?"_s,
                    {TextoDe(fin), transferidos, rechazados, numero});
    Cierra(u"corrida = ?"_s, {numero});
    const int vacias = m_base->Ejecuta(
        u"DELETE * FROM TMPF518CORRIDA WHERE corrida = ? AND filas_cab + filas_det + filas_cp = 0"_s, {numero});
    if (vacias > 0)
        m_base->Ejecuta(u"DELETE * FROM TMPF518PREVIO WHERE corrida = ?"_s, {numero});
}

void CorridasTrabajo::CierraInterrumpidas() {
    Cierra(u"hasta_cab IS NULL"_s, {});
}

void CorridasTrabajo::Cierra(const QString& condicion, const QVariantList& valores) {
    const OrdenDeTrabajo orden(*m_base);
    QStringList cambios;
    for (const TablaDeTrabajo& tabla : TablasPorDependencia()) {
        const QString desde = u"TMPF518CORRIDA.desde_"_s + tabla.sufijo;
        const QString suyas = u"FROM %1 WHERE %2 > %3"_s.arg(tabla.nombre, orden.De(tabla.nombre), desde);
        cambios.append(
            u"hasta_%1 = coalesce((SELECT max(%2) %3), %4)"_s.arg(tabla.sufijo, orden.De(tabla.nombre), suyas, desde));
        cambios.append(u"filas_%1 = (SELECT count(*) %2)"_s.arg(tabla.sufijo, suyas));
    }
    m_base->Ejecuta(u"UPDATE TMPF518CORRIDA SET %1 WHERE %2"_s.arg(cambios.join(u", "_s), condicion), valores);
}

std::optional<CorridaTrabajo> CorridasTrabajo::Ultima() const {
    return Lee(u"corrida = (SELECT max(corrida) FROM TMPF518CORRIDA)"_s, {});
}

std::optional<CorridaTrabajo> CorridasTrabajo::DeHuella(const QString& huella) const {
    return Lee(u"corrida = (SELECT max(corrida) FROM TMPF518CORRIDA WHERE huella = ?)"_s, {huella});
}

bool CorridasTrabajo::HayDeTamanio(qint64 bytes) const {
    return m_base->Lee(u"SELECT 1 FROM TMPF518CORRIDA WHERE bytes = ?"_s, {QString::number(bytes)}).Siguiente();
}

std::optional<CorridaTrabajo> CorridasTrabajo::Lee(const QString& condicion, const QVariantList& valores) const {
    Registros fila = m_base->Lee(u"SELECT * FROM TMPF518CORRIDA WHERE "_s + condicion, valores);
    if (!fila.Siguiente())
        return std::nullopt;
    return CorridaTrabajo{.numero = static_cast<int>(fila.Entero(fila.Columna(u"corrida"))),
                          .archivo = {.nombre = fila.Texto(u"archivo"),
                                      .huella = fila.Texto(u"huella"),
                                      .bytes = fila.Texto(u"bytes").toLongLong()},
                          .hora = QDateTime::fromString(fila.Texto(u"hora"), Qt::ISODate),
                          .usuario = fila.Texto(u"usuario"),
                          .fin = FinDe(fila.Texto(u"fin")),
                          .transferidos = Cuenta(fila, u"transferidos"),
                          .rechazados = Cuenta(fila, u"rechazados")};
}

/// Asked first: most declarations have none of it, and each statement costs a way to the server.
void CorridasTrabajo::Vacia() {
    const QStringList tablas{u"TMPF518CORRIDA"_s, u"TMPF518PREVIO"_s, u"TMPF518MANO"_s,
                             u"TMPF518BCAB"_s,    u"TMPF518BDET"_s,   u"TMPF518BDETCP"_s};
    if (!m_base->Lee(u"SELECT 1 FROM "_s + tablas.join(u" UNION ALL SELECT 1 FROM "_s)).Siguiente())
        return;
    for (const QString& tabla : tablas)
        m_base->Ejecuta(u"DELETE * FROM "_s + tabla);
}

} // namespace xa518
