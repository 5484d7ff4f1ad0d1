#pragma once

#include "data/BasePlace.h"

#include <QList>
#include <QSqlDatabase>
#include <QSqlError>
#include <QString>
#include <QStringList>
#include <QVariantList>

#include <exception>
#include <functional>
#include <memory>
#include <optional>

class QSqlQuery;

namespace xa518 {

class Base;
class ErrorBase;
class FilasNuevas;
struct CopiaDeFilas;

enum class ModoApertura {
    Existente,
    Nueva,
    Cualquiera, ///< made where there is none
};
enum class Memoria { Amplia, Corta };
enum class Turno;

/// What differs between database engines: opening, the dialect, the meaning of error codes, and whatever the dialect
/// has no words for.
class Motor {
  public:
    Motor() = default;
    Motor(const Motor&) = delete;
    Motor& operator=(const Motor&) = delete;
    virtual ~Motor() = default;

    /// Opens the database and sets the engine's rules; raises `ErrorBase`.
    virtual void Abre(const LugarDeBase& lugar, ModoApertura modo) = 0;
    [[nodiscard]] virtual QSqlDatabase Conexion() const = 0;
    /// Turns the system's dialect into the engine's.
    [[nodiscard]] virtual QString Traduce(const QString& sql) const = 0;
    /// The engine's error in the vocabulary of the messages, an `ErrorBase` or one of its kinds: its number, what
    /// happened in plain words, and as its detail the engine's own.
    [[nodiscard]] virtual std::exception_ptr FallaDe(const QSqlError& error) const = 0;
    /// Asked now and then while a statement runs, which ends with an error when the answer is false. It is told how
    /// many rows have been changed since it was put there. An empty one asks nobody.
    using Vigia = std::function<bool(qint64 filas)>;
    virtual void PonVigia(Vigia vigia) = 0;
    /// The statements that start a transaction.
    [[nodiscard]] virtual QStringList SqlComienza(Turno turno) const = 0;
    /// How much memory the connection may take: for the rows that it keeps at hand, and as much for each order that it
    /// puts rows in.
    virtual void PonMemoria(Memoria memoria) = 0;
    /// A query of one number, which stays the same as long as no other connection changes the base.
    [[nodiscard]] virtual QString SqlVersion() const = 0;
    /// A query of one number, the version of the tables; 0 without tables.
    [[nodiscard]] virtual QString SqlVersionDelEsquema() const = 0;
    /// Writes that version.
    [[nodiscard]] virtual QString SqlPonVersionDelEsquema(int version) const = 0;
    /// Adds rows, see `Base::AgregaFilas`.
    virtual QList<size_t> AgregaFilas(const FilasNuevas& filas) = 0;
    /// Copies rows, see `CopiaConChecksum`.
    virtual void CopiaConChecksum(Base& base, const CopiaDeFilas& copia, int primeros) = 0;
    /// A query of two columns, name and declared type, over the columns of a table in their order.
    [[nodiscard]] virtual QString SqlColumnas(const QString& tabla) const = 0;
    /// A query of the names of the tables, but for those that the engine keeps for itself.
    [[nodiscard]] virtual QString SqlTablas() const = 0;
    /// A column that numbers the rows of a table, spoken of by its alias, in the order in which they were entered.
    [[nodiscard]] virtual QString NumeroDeFila(const QString& tabla) const = 0;
    /// The end of a query from one table, see `Base::EnOrdenDeAlta`.
    [[nodiscard]] virtual QString SqlEnOrdenDeAlta(const QString& tabla, const QString& condicion) const = 0;
    /// An expression, see `Base::SqlUnidas`.
    [[nodiscard]] virtual QString SqlUnidas(const QStringList& columnas) const = 0;
    /// What is wrong with the stored bytes, in the engine's words; none when all is well.
    [[nodiscard]] virtual QStringList Defectos() = 0;
    /// Writes a copy of the whole, as it stands at one moment, into a file that isn't there yet.
    virtual void CopiaEn(const QString& archivo) = 0;
    /// Raises `BaseBloqueada` when somebody else works on the base at this moment.
    virtual void ExigeSola() = 0;

    // What follows only an engine at the other end of a wire does otherwise than by doing nothing.

    /// Whether a query reads its rows one by one off the engine: no other one's rows then get lost.
    [[nodiscard]] virtual bool LeeDeUnaEnUna() const { return true; }
    /// Whether a text is prepared, and kept to be run again.
    [[nodiscard]] virtual bool SePrepara(const QString& /*sql*/) const { return true; }
    /// Runs a text that isn't prepared; false when it fails, and then the query has its error.
    [[nodiscard]] virtual bool CorreSinPreparar(QSqlQuery& consulta, const QString& sql, const QVariantList& valores);
    /// More rows of a reading that comes by portions; none as a rule. Past them, or when it fails, false.
    [[nodiscard]] virtual bool TraeMas(QSqlQuery& /*consulta*/) { return false; }
    /// A reading that isn't kept ends.
    virtual void Suelta(QSqlQuery& /*consulta*/) noexcept {}
    /// Runs a statement so that the watch is asked meanwhile; nothing when every statement does.
    [[nodiscard]] virtual std::optional<int> EjecutaConVigia(const QString& /*sql*/, const QVariantList& /*valores*/) {
        return std::nullopt;
    }
    /// Raises `ErrorBase` when the engine would undo the transaction instead of confirming it.
    virtual void ExigeConfirmable() const {}
    /// By which the transaction under way is found again when the connection breaks; empty when it has changed nothing.
    [[nodiscard]] virtual QString MarcaDeTransaccion() { return {}; }
    /// Whether the one of that mark was confirmed. Raises `ErrorBase` as long as nobody can tell.
    [[nodiscard]] virtual bool QuedoTransaccion(const QString& /*marca*/) { return true; }
    /// Whether the connection is lost; what was open on it is gone.
    [[nodiscard]] virtual bool EstaPerdida() const { return false; }
    /// Connects again, as it was opened, once what the lost connection had begun is at its end. Returns the number by
    /// which the other end knew that one. Raises `ErrorBase`.
    virtual int Reconecta() { return 0; }
    /// Whether each program has work tables of its own there, see `Puestos`.
    [[nodiscard]] virtual bool TienePuestos() const { return false; }
    /// Puts those in the place of the work tables.
    virtual void PonTrabajo(const EsquemaDeTrabajo& /*trabajo*/) {}
    /// Whether the account may read alone.
    [[nodiscard]] virtual bool SoloLectura() const { return false; }
};

/// Picks the engine by the database's name: a file is SQLite, a server PostgreSQL.
[[nodiscard]] std::unique_ptr<Motor> MotorPara(const QString& ruta);

} // namespace xa518
