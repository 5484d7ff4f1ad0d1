#pragma once

#include "family/DeclarationKey.h"

#include <QDateTime>
#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

namespace xa518 {

class Base;
class Reloj;
class Transaccion;

/// Under whose name something is changed, on which machine and when.
struct Firma {
    QString usuario;
    QString equipo;
    QDateTime momento;
};

/// Of this machine, now.
[[nodiscard]] Firma FirmaDe(const QString& usuario, const Reloj& reloj);

/// What the log keeps.
enum class Suceso { Grabacion, Eliminacion, Envio, NumeroDeOrden, Restauracion, Mudanza, Declarante };

/// As the table has it.
[[nodiscard]] QString CodigoDe(Suceso suceso);
/// For people; a code that isn't known, of a later version, as it stands.
[[nodiscard]] QString TextoDeSuceso(const QString& codigo);
[[nodiscard]] const QList<Suceso>& LosSucesos();

/// A change that is about to be made.
struct Cambio {
    Suceso suceso = Suceso::Grabacion;
    ClaveDeclaracion clave{}; ///< whose it is; what isn't a declaration's leaves out what it lacks
    QString antes{};          ///< lines of "box=value", or of whatever else has changed
    QString despues{};
};

/// A value that a change has changed; what wasn't there, or isn't any more, is empty.
struct CambioDeValor {
    QString dato; ///< a box, or whatever else it is called
    QString antes;
    QString despues;
};

/// A row of the log.
struct Asiento {
    QString momento; ///< "aaaa-mm-dd hh:mm:ss"
    QString usuario;
    QString equipo;
    QString suceso; ///< its code
    QString ruc;
    QString periodo; ///< "aaaamm", or empty
    QString formulario;
    QString correl;
    QString antes;
    QString despues;
    QString marca;

    /// "22/11/2026 10:42:07".
    [[nodiscard]] QString MomentoMostrado() const;
    /// "ANA en CAJA-2 el 22/11/2026 a las 10:42".
    [[nodiscard]] QString Quien() const;
    /// What has changed from `antes` to `despues`; what stayed isn't named.
    [[nodiscard]] QList<CambioDeValor> ValoresCambiados() const;
    /// The same in words, "401: 10 → 12", "402:  → 3".
    [[nodiscard]] QStringList Cambios() const;
    /// The same in one line.
    [[nodiscard]] QString Diferencias() const { return Cambios().join(QStringLiteral(", ")); }
};

/// Which rows are meant; what is empty doesn't count.
struct FiltroDeBitacora {
    QString ruc{};
    std::optional<Periodo> periodo{};
    QString suceso{}; ///< its code
    QString usuario{};
    QDate desde{};
    QDate hasta{};
};

/// The log of who changed what: rows are added and read, never changed or removed.
class Bitacora {
  public:
    static constexpr int kTodos = -1;

    explicit Bitacora(Base& base) : m_base(&base) {}

    /// Within the transaction that makes the change, so that neither is there without the other. Returns the mark by
    /// which the row is found again.
    QString Anota(const Firma& firma, const Cambio& cambio);
    /// Confirms the transaction that holds the row of that mark. A connection that breaks meanwhile leaves it open
    /// whether the change arrived: the row tells.
    void Confirma(Transaccion& transaccion, const QString& marca) const;

    /// The newest first.
    [[nodiscard]] QList<Asiento> Lista(const FiltroDeBitacora& filtro = {}, int tope = kTodos) const;
    /// The last one of a declaration, whatever became of it. What is done with a sent copy is that copy's alone; the
    /// sending itself is the registered one's.
    [[nodiscard]] std::optional<Asiento> UltimoDe(const ClaveDeclaracion& clave) const;

  private:
    /// The newest first.
    [[nodiscard]] QString Sql(const QString& condicion) const;

    Base* m_base;
};

struct CasillaGuardada;

/// The boxes of a declaration as the log keeps them.
[[nodiscard]] QString EnLineas(const QList<CasillaGuardada>& casillas);
[[nodiscard]] QString CasillasEnLineas(Base& base, const ClaveDeclaracion& clave);

} // namespace xa518
