#pragma once

#include "family/DeclarationKey.h"
#include "form518/Comparison.h"

#include <QHash>
#include <QMap>
#include <QStringList>

#include <utility>

namespace xa518 {

/// A query with its values.
struct Seleccion {
    QString sql;
    QVariantList valores;
};

/// One side of a comparison: what is read of a declaration's detail, the same columns wherever its rows lie.
struct LadoComparado {
    Seleccion clientes;     ///< type, number, name, amount charged, perception
    Seleccion comprobantes; ///< `DatosDeComprobantes`, cash sales among them
    Seleccion pagos;        ///< `DatosDePagos`

    [[nodiscard]] static LadoComparado DelTrabajo();
    [[nodiscard]] static LadoComparado De(const ClaveDeclaracion& clave);
};

/// Type and number of a document, by which clients are put in order.
using DocumentoDeCliente = std::pair<int, QString>;

struct ClienteLeido {
    QString nombre;
    SumasComparadas sumas;
};
using ClientesLeidos = QMap<DocumentoDeCliente, ClienteLeido>;

/// The clients of a side.
[[nodiscard]] ClientesLeidos LeeClientes(Base& base, const Seleccion& clientes);

using MovimientosPorCliente = QHash<DocumentoDeCliente, Movimientos>;

/// What differs between two selections of vouchers, whose key are their first `clave` columns, the client's two first
/// of all. The engine finds the rows that aren't alike; only those are read.
[[nodiscard]] MovimientosPorCliente ComparaFilas(Base& base, const Seleccion& antes, const Seleccion& despues,
                                                 qsizetype clave);

} // namespace xa518
