#pragma once

#include "data/BasePlace.h"
#include "data/Record.h"
#include "values/Error.h"

#include <QSqlError>
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
class Puestos;
enum class ModoApertura;
class TrabajoSeguido;
class Transaccion;
struct CopiaDeFilas;

/// A failure of the database engine: `Numero` as the messages know it (see `NumeroError`), `Texto` what happened in
/// plain words, `Detalle` the engine's.
class ErrorBase : public Error {
  public:
    using Error::Error;
};

/// Whose turn a transaction waits for before it begins, where several programs may write at once. A file has one writer
/// at a time anyway.
enum class Turno {
    DeTodos, ///< that of all programs: what it reads is what it changes, as where numbers are given
    Propio,  ///< nobody's: it writes rows that are this program's alone
};

/// A statement that was run.
struct Corrida {
    std::unique_ptr<QSqlQuery> consulta;
    const QString* sql = nullptr; ///< under which it is kept to be run again; none when it isn't
    int conexion = 0;             ///< which of those that the base has had
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
    Registros(class Base& base, Corrida corrida);

    class Base* m_base;
    Corrida m_corrida;
};

/// The open database. SQL texts are in the system's dialect, with `?` where a value goes; the engine, picked by the
/// database's name, turns them into its own. Statements are prepared once per text, and take exactly as many values as
/// they have places for. An invalid value is null; a text never is, a default `QString` is the empty text. Every
/// failure is an `ErrorBase`.
class Base {
  public:
    /// Opens an existing database for shared reading and writing: `BaseNoExiste` when it is missing, `BaseBloqueada`
    /// when another program holds it or it can't be written.
    [[nodiscard]] static std::unique_ptr<Base> Abre(const LugarDeBase& lugar);
    [[nodiscard]] static std::unique_ptr<Base> Abre(const QString& ruta) { return Abre(LugarDeBase{ruta}); }
    /// Makes an empty database where there is none, private to the user, and opens it. That of a server must exist,
    /// with nothing in it.
    [[nodiscard]] static std::unique_ptr<Base> Crea(const QString& ruta);
    /// Opens a database, and makes it first where there is none.
    [[nodiscard]] static std::unique_ptr<Base> AbreOCrea(const QString& ruta);

    Base(const Base&) = delete;
    Base& operator=(const Base&) = delete;
    ~Base();

    [[nodiscard]] Registros Lee(const QString& sql, const QVariantList& valores = {});
    /// Runs a statement; returns the number of rows it changed.
    int Ejecuta(const QString& sql, const QVariantList& valores = {});

    /// The table's columns as declared; read once. The reference holds as long as the base is open.
    [[nodiscard]] const Tabla& Describe(const QString& tabla);
    /// The names of the tables, but for those that the engine keeps for itself.
    [[nodiscard]] QStringList Tablas();
    /// A column that numbers the rows of a table, spoken of by its alias in a query, in the order in which they were
    /// entered.
    [[nodiscard]] QString NumeroDeFila(const QString& tabla) const;
    /// The end of a query, from "FROM" on, that reads the rows of one table which a condition ("WHERE ...") finds in
    /// the order in which they were entered.
    [[nodiscard]] QString EnOrdenDeAlta(const QString& tabla, const QString& condicion) const;
    /// An expression that gives several columns as one text, a JSON array, which costs less than each by itself.
    [[nodiscard]] QString SqlUnidas(const QStringList& columnas) const;
    /// Adds a row. `ClaveDuplicada` when its key stands there already.
    void Agrega(const Registro& registro);

    /// Adds many rows at once, which is many times as fast; their order is the order in which they were entered. Tells
    /// which of them, counted from 0, the table doesn't take since their key stands there already: the others are in.
    /// Within a transaction, without which it refuses; after any other error that is only good to be undone.
    [[nodiscard]] QList<size_t> AgregaFilas(const FilasNuevas& filas);
    /// Copies rows by the engine itself; for `xa518::CopiaConChecksum`.
    void CopiaConChecksum(const CopiaDeFilas& copia, int primeros);
    /// A number that stays the same as long as no other connection changes the work tables.
    [[nodiscard]] qint64 Version();
    /// The version of the tables that the base carries; 0 for one without tables.
    [[nodiscard]] int VersionDelEsquema();
    void PonVersionDelEsquema(int version);

    /// The one row of a table that a condition ("WHERE ...") finds; nothing when there is none.
    [[nodiscard]] std::optional<Registro> Busca(const QString& tabla, const QString& condicion,
                                                const QVariantList& valores);
    /// Writes a row over those that a condition finds.
    void Actualiza(const Registro& registro, const QString& condicion, const QVariantList& valores);

    /// What is wrong with the stored bytes, in the engine's words; none when all is well.
    [[nodiscard]] QStringList Defectos();
    /// Writes a copy of the whole base into a file that isn't there yet.
    void CopiaEn(const QString& archivo);
    /// Raises `BaseBloqueada` when another program works on the base at this moment.
    void ExigeSola();

    /// Starts a transaction with the right to write, which waits a short while for other writers.
    [[nodiscard]] Transaccion Comienza(Turno turno = Turno::DeTodos);

    /// The seats of a base that several programs use at once; none on a file.
    [[nodiscard]] Puestos* LosPuestos() const { return m_puestos.get(); }
    /// Goes on with that seat's work tables.
    void PonTrabajo(const EsquemaDeTrabajo& trabajo);
    /// Whether the account of the connection may read alone. A file that can't be written isn't opened.
    [[nodiscard]] bool SoloLectura() const;

    [[nodiscard]] const QString& Ruta() const { return m_lugar.ruta; }
    /// What another connection to the same is opened by.
    [[nodiscard]] const LugarDeBase& Lugar() const { return m_lugar; }

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

    Base(LugarDeBase lugar, std::unique_ptr<Motor> motor);
    static std::unique_ptr<Base> Abre(const LugarDeBase& lugar, ModoApertura modo);
    void ExigeConexion();
    void Reconecta();
    std::unique_ptr<QSqlQuery> Prepara(const QString& sql);
    [[nodiscard]] Corrida Corre(const QString& sql, const QVariantList& valores);
    void CorrePreparada(Corrida& corrida, Sentencia& sentencia, const QVariantList& valores);
    void Devuelve(Corrida corrida) noexcept;

    int EjecutaDentro(const QString& sql, const QVariantList& valores = {});
    template <typename Trabajo>
    auto Distingue(const QString& texto, const Trabajo& trabajo);
    [[nodiscard]] qint64 LeeNumero(const QString& sql);
    void PonSeguido(TrabajoSeguido* seguido);
    [[noreturn]] void Falla(const QSqlQuery& consulta) const;
    [[noreturn]] void Falla(const QSqlError& error) const;
    /// Raises `Detenido` when what failed did so because the work was stopped.
    void AvisaElCorte() const;

    LugarDeBase m_lugar;
    std::unique_ptr<Motor> m_motor;
    std::unique_ptr<Puestos> m_puestos;
    int m_conexion = 0; ///< how often it was made again
    bool m_enTransaccion = false;
    TrabajoSeguido* m_seguido = nullptr;
    std::unordered_map<QString, Sentencia> m_sentencias;
    std::unordered_map<QString, Tabla> m_tablas;
};

} // namespace xa518
