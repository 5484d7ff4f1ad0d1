#pragma once

#include "family/DeclarationKey.h"
#include "family/StoredState.h"

#include <QDateTime>
#include <QList>
#include <QString>

#include <optional>

namespace xa518 {

class Base;

/// For how many days a declaration stays put aside.
inline constexpr int kDiasApartada = 7;

/// A declaration that isn't saved yet, whose detail stands in the work tables.
struct SinGrabar {
    bool nueva = true;
    ClaveDeclaracion clave;    ///< of a new one as far as it has been given
    EstadoGuardado guardado{}; ///< how it stood in the tables when it was opened
    QString escrito;           ///< what was typed in its form, as JSON
    QString usuario{};
    QString equipo{};
    QDateTime momento{}; ///< of the last change

    [[nodiscard]] bool EsDe(const ClaveDeclaracion& otra) const;
};

/// The row that was found beside the work tables.
struct FilaSinGrabar {
    SinGrabar fila;
    bool esDeEstaVersion = true; ///< otherwise only its key and its times are believed
};

/// One that was put aside.
struct Apartada {
    int copia; ///< its number
    QDateTime cuando;
    qint64 comprobantes;
    SinGrabar fila;
};

/// The row beside the work tables, and the declarations that were put aside. All raise `ErrorBase`.
class TablaSinGrabar {
  public:
    explicit TablaSinGrabar(Base& base) : m_base(&base) {}

    [[nodiscard]] std::optional<FilaSinGrabar> Lee() const;
    /// Vouchers of the work tables, cash sales included.
    [[nodiscard]] qint64 Comprobantes() const;
    /// In the place of what was there.
    void Escribe(const SinGrabar& fila);
    void Quita();

    /// Puts the row aside with a copy of the work tables' rows; one transaction. Nothing without a row. One with a
    /// name isn't offered any more, and stays.
    void Aparta(const QDateTime& ahora, const QString& nombre = {});
    /// Those that may be taken up again, the last one first.
    [[nodiscard]] QList<Apartada> Apartadas() const;
    /// Brings one back into the work tables, in the place of what is there; one transaction.
    void Devuelve(int copia);
    /// Drops those that were put aside more than `kDiasApartada` ago.
    void BorraViejas(const QDateTime& ahora);

  private:
    void QuitaApartada(int copia);

    Base* m_base;
};

/// What a crash in the middle of a dialog, or of an import, has left half done in the work tables.
struct DetalleCompletado {
    QStringList sinNombre;          ///< documents of clients that were never accepted: their rows lack the names
    qint64 pagosSinComprobante = 0; ///< payment vouchers of vouchers that were never accepted
};

/// Gives vouchers without a client a row for it, and brings all totals up to date. Raises `ErrorBase`.
[[nodiscard]] DetalleCompletado CompletaElDetalle(Base& base);

/// "COMERCIAL DEL VALLE, período 10/2026, con 247 comprobantes, del 22/11/2026 08:51". Raises `ErrorBase`.
[[nodiscard]] QString Descripcion(Base& base, const SinGrabar& fila, qint64 comprobantes);

} // namespace xa518
