#include "form518/UnsavedDeclaration.h"

#include "data/Base.h"
#include "data/Transaction.h"
#include "form518/DetailColumns.h"
#include "form518/WorkRuns.h"
#include "form518/WorkTables.h"

#include <array>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// How the row is laid out, and the text that it carries.
constexpr int kVersion = 1;

const QString kFila = u"TMPF518SINGRABAR"_s;
const QString kApartadas = u"TMPF518APARTADA"_s;
const QString kColumnas =
    u"Version, Nueva, Doc_id_d, periodo, Formulario, Guardado, Escrito, Usuario, Equipo, Momento"_s;
const QString kSignos = u"?, ?, ?, ?, ?, ?, ?, ?, ?, ?"_s;

/// A work table, and the one that keeps its rows aside.
struct Pareja {
    QString trabajo;
    QString aparte;
};
const std::array<Pareja, 3> kParejas = {{{u"TMPF518PCAB"_s, u"TMPF518APCAB"_s},
                                         {u"TMPF518PDET"_s, u"TMPF518APDET"_s},
                                         {u"TMPF518PDETCP"_s, u"TMPF518APDETCP"_s}}};

QString EnTexto(const QDateTime& momento) {
    return momento.toString(u"yyyy-MM-ddTHH:mm:ss"_s);
}

QVariantList ValoresDe(const SinGrabar& fila) {
    return {kVersion,
            fila.nueva ? 1 : 0,
            fila.clave.ruc.Texto(),
            fila.clave.periodo.Texto(),
            fila.clave.formulario,
            fila.guardado.Texto(),
            fila.escrito,
            fila.usuario,
            fila.equipo,
            EnTexto(fila.momento)};
}

SinGrabar FilaDe(const Registros& leida) {
    return {.nueva = leida.Valor(u"Nueva").toInt() != 0,
            .clave = {.ruc = Ruc(leida.Texto(u"Doc_id_d")),
                      .periodo = Periodo::DeTabla(leida.Texto(u"periodo")).value_or(Periodo()),
                      .formulario = leida.Texto(u"Formulario")},
            .guardado = EstadoGuardado::DeTexto(leida.Texto(u"Guardado")),
            .escrito = leida.Texto(u"Escrito"),
            .usuario = leida.Texto(u"Usuario"),
            .equipo = leida.Texto(u"Equipo"),
            .momento = QDateTime::fromString(leida.Texto(u"Momento"), Qt::ISODate)};
}

qint64 CuantasHay(Base& base, const QString& desde, const QVariantList& valores = {}) {
    Registros fila = base.Lee(u"SELECT count(*) FROM "_s + desde, valores);
    return fila.Siguiente() ? fila.Entero(0) : 0;
}

QString SusColumnas(Base& base, const QString& tabla) {
    QStringList nombres;
    for (const Columna& columna : base.Describe(tabla).columnas)
        nombres.append(columna.nombre);
    return nombres.join(u", "_s);
}

/// In words, for what the work tables and their readers join by.
QString MismoCliente(const QString& una, const QString& otra) {
    const auto igual = [&](DatoCliente dato) { return u"%1.%3 = %2.%3"_s.arg(una, otra, ColumnaDe(dato)); };
    return igual(DatoCliente::TipoDoc) + u" AND "_s + igual(DatoCliente::NumDoc);
}

QString NombreDe(Base& base, const Ruc& ruc) {
    if (ruc.Texto().isEmpty())
        return u"un declarante por elegir"_s;
    Registros fila = base.Lee(u"SELECT Nombre FROM CONT WHERE Tip_doc_d = 6 AND Doc_id_d = ?"_s, {ruc.Texto()});
    return fila.Siguiente() ? fila.Texto(0) : ruc.Texto();
}

} // namespace

bool SinGrabar::EsDe(const ClaveDeclaracion& otra) const {
    return clave.ruc == otra.ruc && clave.periodo == otra.periodo && clave.formulario == otra.formulario &&
           !otra.enviada;
}

std::optional<FilaSinGrabar> TablaSinGrabar::Lee() const {
    Registros leida = m_base->Lee(u"SELECT %1 FROM %2"_s.arg(kColumnas, kFila));
    if (!leida.Siguiente())
        return std::nullopt;
    return FilaSinGrabar{.fila = FilaDe(leida), .esDeEstaVersion = leida.Entero(0) == kVersion};
}

qint64 TablaSinGrabar::Comprobantes() const {
    return CuantasHay(*m_base, kParejas[1].trabajo);
}

void TablaSinGrabar::Escribe(const SinGrabar& fila) {
    static const QString cambia =
        u"UPDATE %1 SET %2 = ?"_s.arg(kFila, QString(kColumnas).replace(u", "_s, u" = ?, "_s));
    static const QString agrega = u"INSERT INTO %1 (%2) VALUES (%3)"_s.arg(kFila, kColumnas, kSignos);
    if (m_base->Ejecuta(cambia, ValoresDe(fila)) == 0)
        m_base->Ejecuta(agrega, ValoresDe(fila));
}

void TablaSinGrabar::Quita() {
    m_base->Ejecuta(u"DELETE * FROM "_s + kFila);
}

void TablaSinGrabar::Aparta(const QDateTime& ahora, const QString& nombre) {
    Transaccion transaccion = m_base->Comienza(Turno::Propio);
    Registros ultima = m_base->Lee(u"SELECT max(Copia) FROM "_s + kApartadas);
    const qint64 copia = ultima.Siguiente() ? ultima.Entero(0) + 1 : 1;
    const int apartadas = m_base->Ejecuta(
        u"INSERT INTO %1 (Copia, Apartada, Nombre, %2) SELECT ?, ?, ?, %2 FROM %3"_s.arg(kApartadas, kColumnas, kFila),
        {copia, EnTexto(ahora), nombre});
    if (apartadas == 0)
        return;
    for (const auto& [trabajo, aparte] : kParejas) {
        const QString columnas = SusColumnas(*m_base, trabajo);
        m_base->Ejecuta(
            u"INSERT INTO %1 (Copia, %2) SELECT ?, %2 %3"_s.arg(aparte, columnas, m_base->EnOrdenDeAlta(trabajo, {})),
            {copia});
    }
    Quita();
    transaccion.Confirma();
}

QList<Apartada> TablaSinGrabar::Apartadas() const {
    QList<Apartada> apartadas;
    Registros filas = m_base->Lee(u"SELECT Copia, Apartada, %1 FROM %2 WHERE Nombre = '' AND Version = ? "
                                  "ORDER BY Copia DESC"_s.arg(kColumnas, kApartadas),
                                  {kVersion});
    while (filas.Siguiente()) {
        const auto copia = static_cast<int>(filas.Entero(0));
        apartadas.append({.copia = copia,
                          .cuando = QDateTime::fromString(filas.Texto(1), Qt::ISODate),
                          .comprobantes = CuantasHay(*m_base, kParejas[1].aparte + u" WHERE Copia = ?"_s, {copia}),
                          .fila = FilaDe(filas)});
    }
    return apartadas;
}

void TablaSinGrabar::Devuelve(int copia) {
    Transaccion transaccion = m_base->Comienza(Turno::Propio);
    for (const auto& [trabajo, aparte] : kParejas) {
        const QString columnas = SusColumnas(*m_base, trabajo);
        m_base->Ejecuta(u"DELETE * FROM "_s + trabajo);
        m_base->Ejecuta(u"INSERT INTO %1 (%2) SELECT %2 %3"_s.arg(trabajo, columnas,
                                                                  m_base->EnOrdenDeAlta(aparte, u"WHERE Copia = ?"_s)),
                        {copia});
    }
    CorridasTrabajo(*m_base).Vacia(); // the rows have other numbers now than those that an undo goes by
    Quita();
    m_base->Ejecuta(u"INSERT INTO %1 (%2) SELECT %2 FROM %3 WHERE Copia = ?"_s.arg(kFila, kColumnas, kApartadas),
                    {copia});
    QuitaApartada(copia);
    transaccion.Confirma();
}

void TablaSinGrabar::QuitaApartada(int copia) {
    for (const auto& [trabajo, aparte] : kParejas)
        m_base->Ejecuta(u"DELETE * FROM %1 WHERE Copia = ?"_s.arg(aparte), {copia});
    m_base->Ejecuta(u"DELETE * FROM %1 WHERE Copia = ?"_s.arg(kApartadas), {copia});
}

void TablaSinGrabar::BorraViejas(const QDateTime& ahora) {
    QList<int> viejas;
    {
        Registros filas = m_base->Lee(u"SELECT Copia FROM %1 WHERE Nombre = '' AND Apartada < ?"_s.arg(kApartadas),
                                      {EnTexto(ahora.addDays(-kDiasApartada))});
        while (filas.Siguiente())
            viejas.append(static_cast<int>(filas.Entero(0)));
    }
    if (viejas.isEmpty())
        return;
    Transaccion transaccion = m_base->Comienza(Turno::Propio);
    for (const int copia : viejas)
        QuitaApartada(copia);
    transaccion.Confirma();
}

/// A client's row is made when its dialog is accepted, after its vouchers: without it they would be saved as nobody's.
DetalleCompletado CompletaElDetalle(Base& base) {
    const QString tipo = ColumnaDe(DatoCliente::TipoDoc);
    const QString numero = ColumnaDe(DatoCliente::NumDoc);
    QList<ClaveCliente> sueltos;
    {
        Registros filas =
            base.Lee(u"SELECT DISTINCT D.%1, D.%2 FROM TMPF518PDET AS D WHERE NOT EXISTS "
                     "(SELECT 1 FROM TMPF518PCAB AS C WHERE %3)"_s.arg(tipo, numero, MismoCliente(u"C"_s, u"D"_s)));
        while (filas.Siguiente())
            sueltos.append({.tipoDoc = CodigoDocumento(static_cast<int>(filas.Entero(0))), .numero = filas.Texto(1)});
    }
    TablasTrabajo tablas(base);
    DetalleCompletado completado;
    for (const ClaveCliente& cliente : sueltos) {
        ClientesTrabajo(base).Agrega(cliente, {},
                                     {.ctdDocs = tablas.CuentaDocs(cliente), .base = {}, .percepcion = {}});
        completado.sinNombre.append(cliente.numero);
    }
    tablas.CalculaTotales();
    const auto igual = [](DatoPago pago, DatoComprobante comprobante) {
        return u"P.%1 = D.%2"_s.arg(ColumnaDe(pago), ColumnaDe(comprobante));
    };
    const QStringList mismo = {
        igual(DatoPago::TipoDoc, DatoComprobante::TipoDoc), igual(DatoPago::NumDoc, DatoComprobante::NumDoc),
        igual(DatoPago::SerieCp, DatoComprobante::Serie), igual(DatoPago::NumeroCp, DatoComprobante::Numero)};
    completado.pagosSinComprobante = CuantasHay(
        base,
        u"TMPF518PDETCP AS P WHERE NOT EXISTS (SELECT 1 FROM TMPF518PDET AS D WHERE %1)"_s.arg(mismo.join(u" AND "_s)));
    return completado;
}

QString Descripcion(Base& base, const SinGrabar& fila, qint64 comprobantes) {
    const Periodo& periodo = fila.clave.periodo;
    return u"%1, período %2, con %3, del %4"_s.arg(
        NombreDe(base, fila.clave.ruc), periodo.Texto().isEmpty() ? u"por indicar"_s : periodo.EnPantalla(),
        comprobantes == 1 ? u"1 comprobante"_s : u"%1 comprobantes"_s.arg(comprobantes),
        fila.momento.toString(u"dd/MM/yyyy HH:mm"_s));
}

} // namespace xa518
