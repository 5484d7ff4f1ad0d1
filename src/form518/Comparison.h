#pragma once

#include "family/SentCopies.h"
#include "values/Decimal.h"

#include <QList>
#include <QMap>
#include <QString>

#include <optional>

namespace xa518 {

class Avance;
class Base;

/// The values of boxes by their numbers.
using ValoresDeCasillas = QMap<int, QString>;

/// A declaration that is to be compared with a sent copy of its month: the registered one, or, when boxes are given,
/// the one that is open, whose boxes they are and whose detail lies in the work tables.
struct PedidoDeComparacion {
    CopiaEnviada copia;
    QString nombre{}; ///< of the declarant
    std::optional<ValoresDeCasillas> abierta{};
};

/// A box on both sides, as people read it. A box that a side lacks is empty there.
struct CasillaComparada {
    int casilla = 0;
    QString concepto;
    QString antes;
    QString despues;
    QString diferencia; ///< of amounts, signed; empty of other boxes

    [[nodiscard]] bool Cambia() const { return antes != despues; }
};

enum class ClaseDeCambio { Agregado, Quitado, Cambiado };

/// How many of a client's rows one side alone has, and how many differ.
struct Movimientos {
    int agregados = 0;
    int quitados = 0;
    int cambiados = 0;

    [[nodiscard]] bool Hay() const { return agregados + quitados + cambiados > 0; }
    /// "+2 -1 ~3", without what is 0.
    [[nodiscard]] QString Texto() const;
};

/// Amount charged and perception.
struct SumasComparadas {
    Importe base;
    Importe percepcion;

    bool operator==(const SumasComparadas&) const = default;
};

/// A client of which anything differs.
struct ClienteComparado {
    ClaseDeCambio clase = ClaseDeCambio::Cambiado;
    int tipoDoc = 0;
    QString numero;
    QString nombre; ///< as it is called now
    bool otroNombre = false;
    SumasComparadas antes;
    SumasComparadas despues;
    Movimientos comprobantes;
    Movimientos pagos;
};

/// What differs between a sent copy, before, and a declaration, after.
struct Comparacion {
    PedidoDeComparacion pedido;
    QList<CasillaComparada> casillas; ///< all that people know, those that don't differ as well
    QList<ClienteComparado> clientes; ///< by document

    [[nodiscard]] bool HayCambios() const;

    /// How many clients of a class there are, and by how much they change the sums.
    struct Resumen {
        int clientes = 0;
        SumasComparadas diferencia;
    };
    [[nodiscard]] Resumen De(ClaseDeCambio clase) const;
};

/// "Agregado" and its like, as a list names the client.
[[nodiscard]] QString Palabra(ClaseDeCambio clase);

/// The difference of two amounts.
[[nodiscard]] Importe Resta(Importe despues, Importe antes);

/// Compares box by box, client by client and voucher by voucher. May be called in any thread, with a base of its own.
/// Amounts are compared by their value, whatever the spelling. Raises `ErrorBase`, and `Detenido` by `avance`.
[[nodiscard]] Comparacion Compara(Base& base, const PedidoDeComparacion& pedido, Avance& avance);

} // namespace xa518
