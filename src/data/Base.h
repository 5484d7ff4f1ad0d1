#pragma once

#include "data/Record.h"
#include "values/Error.h"

#include <QSqlQuery>
#include <QString>
#include <QVariantList>

#include <memory>
#include <optional>
#include <unordered_map>
#include <vector>

namespace xa518 {

class FilasNuevas;
class Motor;
class TrabajoSeguido;
class Transaccion;

/// A failure of the database engine: `Numero` as the messages know it (see `NumeroError`), `Texto` what happened in
/// plain words, `Detalle` the engine's.
class ErrorBase : public Error {
  public:
    using Error::Error;
};

/// A row set, read forward. Columns count from 0; names without case.
class Registros {
  public:
    Registros(Registros&& otro) noexcept;
    Registros& operator=(Registros&&) = delete;
    Registros(const Registros&) = delete;
    Registros& operator=(const Registros&) = delete;
    ~Registros();

    /// Moves to the next row, at first to the first one; false past the last.
    [[nodiscard]] bool Siguiente();

    /// The value as text; the empty text for null.
    [[nodiscard]] QString Texto(int columna) const;
    [[nodiscard]] QString Texto(QStringView columna) const { return Texto(Columna(columna)); }
    [[nodiscard]] qint64 Entero(int columna) const;
    [[nodiscard]] bool EsNulo(int columna) const;
    [[nodiscard]] QVariant Valor(int columna) const; ///< an invalid value for null
    [[nodiscard]] QVariant Valor(QStringView columna) const { return Valor(Columna(columna)); }

    /// Raises `ErrorBase` (`CampoNoExiste`) for a name that the set lacks.
    [[nodiscard]] int Columna(QStringView nombre) const;
    [[nodiscard]] int Columnas() const;

  private:
    friend class Base;
    Registros(class Base& base, const QString& sql, std::unique_ptr<QSqlQuery> consulta);

    class Base* m_base;
    const QString* m_sql;
    std::unique_ptr<QSqlQuery> m_consulta;
};

/// The open database. SQL texts are in the system's dialect, with `?` where a value goes; the engine, picked by the
/// database's name, turns them into its own. Statements are prepared once per text, and take exactly as many values as
/// they have places for. An invalid value is null; a text never is, a default `QString` is the empty text. Every
/// failure is an `ErrorBase`.
class Base {
  public:
    /// Opens an existing database for shared reading and writing: `BaseNoExiste` when it is missing, `BaseBloqueada`
    /// when another program holds it or it can't be written.
    [[nodiscard]] static std::unique_ptr<Base> Abre(const QString& ruta);
    /// Makes an empty database where there is none, private to the user, and opens it.
    [[nodiscard]] static std::unique_ptr<Base> Crea(const QString& ruta);

    Base(const Base&) = delete;
    Base& operator=(const Base&) = delete;
    ~Base();

    [[nodiscard]] Registros Lee(const QString& sql, const QVariantList& valores = {});
    /// Runs a statement; returns the number of rows it changed.
    int Ejecuta(const QString& sql, const QVariantList& valores = {});

    /// The table's columns as declared; read once. The reference holds as long as the base is open.
    [[nodiscard]] const Tabla& Describe(const QString& tabla);
    /// A column that numbers the rows of a table, spoken of by its alias in a query, in the order in which they were
    /// entered.
    [[nodiscard]] QString NumeroDeFila(const QString& tabla) const;
    /// Adds a row. `ClaveDuplicada` when its key stands there already.
    void Agrega(const Registro& registro);

    /// Adds many rows at once, which is many times as fast; their order is the order in which they were entered. Tells
    /// which of them, counted from 0, the table doesn't take since their key stands there already: the others are in.
    /// Within a transaction, without which it refuses; after any other error that is only good to be undone.
    [[nodiscard]] QList<size_t> AgregaFilas(const FilasNuevas& filas);
    /// A number that stays the same as long as no other connection changes the base.
    [[nodiscard]] qint64 Version();

    /// The one row of a table that a condition ("WHERE ...") finds; nothing when there is none.
    [[nodiscard]] std::optional<Registro> Busca(const QString& tabla, const QString& condicion,
                                                const QVariantList& valores);
    /// Writes a row over those that a condition finds.
    void Actualiza(const Registro& registro, const QString& condicion, const QVariantList& valores);

    /// Starts a transaction with the right to write, which waits a short while for other writers.
    [[nodiscard]] Transaccion Comienza();

    [[nodiscard]] const QString& Ruta() const { return m_ruta; }

  private:
    friend class LecturaLarga;
    friend class Registros;
    friend class TrabajoSeguido;
    friend class Transaccion;
    /// A text that was run before: its places for values, and what was prepared of it and is free to run again.
    struct Sentencia {
        qsizetype lugares = 0;
        std::vector<std::unique_ptr<QSqlQuery>> libres;
    };

    Base(QString ruta, std::unique_ptr<Motor> motor);
    std::unique_ptr<QSqlQuery> Prepara(const QString& sql);
    const QString& Corre(const QString& sql, const QVariantList& valores, std::unique_ptr<QSqlQuery>& consulta);
    void Devuelve(const QString& sql, std::unique_ptr<QSqlQuery> consulta) noexcept;

    void PonSeguido(TrabajoSeguido* seguido);
    [[noreturn]] void Falla(const QSqlQuery& consulta) const;
    /// Raises `Detenido` when what failed did so because the work was stopped.
    void AvisaElCorte() const;

    QString m_ruta;
    std::unique_ptr<Motor> m_motor;
    TrabajoSeguido* m_seguido = nullptr;
    std::unordered_map<QString, Sentencia> m_sentencias;
    std::unordered_map<QString, Tabla> m_tablas;
};

} // namespace xa518
