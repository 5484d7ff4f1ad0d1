#pragma once

#include "data/Record.h"

#include <QList>
#include <QString>
#include <QStringList>
#include <QVarLengthArray>

#include <algorithm>

namespace xa518 {

// The columns of the detail tables, registered, sent and at work alike. Each is spoken of by what it holds: its name
// stands in the schema and in DetailColumns.cpp, and nowhere else.

/// Of a client.
enum class DatoCliente {
    TipoDoc,
    NumDoc,
    Razon,
    ApellidoP,
    ApellidoM,
    Nombres,
    CtdDocs,
    MontoBase,
    Percepcion,
    IndRuc
};

/// Of a perception voucher or a cash sale: the key, the answers, the rest. Only a cash sale has a type.
enum class DatoComprobante {
    TipoDoc,
    NumDoc,
    Serie,
    Numero,
    TipCp,
    CpFact,
    ListaClie,
    MedPago,
    Fecha,
    MontoBase,
    Percepcion,
    Tasa,
};

/// Of a payment voucher: the key of its perception voucher, its own, the rest.
enum class DatoPago { TipoDoc, NumDoc, SerieCp, NumeroCp, Tipo, Serie, Numero, Fecha, Monto };

/// How a row of the work tables writes an amount that was computed.
inline constexpr QStringView kMascaraDeMonto = u"###########0.#0";

/// The column's name.
[[nodiscard]] QString ColumnaDe(DatoCliente dato);
[[nodiscard]] QString ColumnaDe(DatoComprobante dato);
[[nodiscard]] QString ColumnaDe(DatoPago dato);

/// By which a row of the work tables is told from the others.
[[nodiscard]] const QList<DatoCliente>& ClaveDeClientes();
[[nodiscard]] const QList<DatoComprobante>& ClaveDeComprobantes();
[[nodiscard]] const QList<DatoPago>& ClaveDePagos();

/// What moves between work tables and saved ones as it stands, if the saved one has it: an ordinary voucher has no
/// type.
[[nodiscard]] const QList<DatoComprobante>& DatosDeComprobantes();
[[nodiscard]] const QList<DatoPago>& DatosDePagos();

/// Where the columns stand in a table, found once for any number of rows.
template <typename Dato>
class LugaresDe {
  public:
    LugaresDe(const Tabla& tabla, const QList<Dato>& datos) {
        for (const Dato dato : datos) {
            m_lugares.resize(std::max(m_lugares.size(), Indice(dato) + 1));
            m_lugares[Indice(dato)] = tabla.Indice(ColumnaDe(dato));
        }
    }
    [[nodiscard]] int operator[](Dato dato) const { return m_lugares.at(Indice(dato)); }

  private:
    static qsizetype Indice(Dato dato) { return static_cast<qsizetype>(dato); }

    QVarLengthArray<int, 12> m_lugares;
};

template <typename Dato>
[[nodiscard]] QStringList ColumnasDe(const QList<Dato>& datos) {
    QStringList nombres;
    for (const Dato dato : datos)
        nombres.append(ColumnaDe(dato));
    return nombres;
}

/// "a, b", or with an alias of the table "A.a, A.b".
template <typename Dato>
[[nodiscard]] QString ListaDe(const QList<Dato>& datos, const QString& alias = {}) {
    const QString antes = alias.isEmpty() ? alias : alias + u'.';
    return antes + ColumnasDe(datos).join(QStringLiteral(", ") + antes);
}

/// "a = ? AND b = ?", or with an alias of the table "A.a = ? AND A.b = ?".
template <typename Dato>
[[nodiscard]] QString IgualesA(const QList<Dato>& datos, const QString& alias = {}) {
    const QString antes = alias.isEmpty() ? alias : alias + u'.';
    return antes + ColumnasDe(datos).join(QStringLiteral(" = ? AND ") + antes) + QStringLiteral(" = ?");
}

/// The sum of an amount, which the tables keep as text.
template <typename Dato>
[[nodiscard]] QString SumaDe(Dato monto) {
    return QStringLiteral("SUM(%1 * 1)").arg(ColumnaDe(monto));
}

} // namespace xa518
