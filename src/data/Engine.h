#pragma once

#include <QList>
#include <QSqlDatabase>
#include <QSqlError>
#include <QString>
#include <QStringList>

#include <functional>
#include <memory>

namespace xa518 {

class Base;
class ErrorBase;
class FilasNuevas;
struct CopiaDeFilas;

enum class ModoApertura { Existente, Nueva };
enum class Memoria { Amplia, Corta };

/// What differs between database engines: opening, the dialect, the meaning of error codes, and whatever the dialect has
/// no words for.
class Motor {
  public:
    Motor() = default;
    Motor(const Motor&) = delete;
    Motor& operator=(const Motor&) = delete;
    virtual ~Motor() = default;

    /// Opens the database and sets the engine's rules; raises `ErrorBase`.
    virtual void Abre(const QString& ruta, ModoApertura modo) = 0;
    [[nodiscard]] virtual QSqlDatabase Conexion() const = 0;
    /// Turns the system's dialect into the engine's.
    [[nodiscard]] virtual QString Traduce(const QString& sql) const = 0;
    /// The engine's error in the vocabulary of the messages: its number, what happened in plain words, and as its
    /// detail the engine's own.
    [[nodiscard]] virtual ErrorBase ErrorDe(const QSqlError& error) const = 0;
    /// Asked now and then while a statement runs, which ends with an error when the answer is false. It is told how
    /// many rows have been changed since it was put there. An empty one asks nobody.
    using Vigia = std::function<bool(qint64 filas)>;
    virtual void PonVigia(Vigia vigia) = 0;
    [[nodiscard]] virtual QString SqlComienza() const = 0;
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
};

/// Picks the engine by the database's name: a file is SQLite.
[[nodiscard]] std::unique_ptr<Motor> MotorPara(const QString& ruta);

} // namespace xa518
