#include "data/RecordChecksum.h"
#include "data/SqliteEngine.h"
#include "values/Decimal.h"
#include "values/Error.h"
#include "values/Format.h"

#include <QStringDecoder>
#include <QVarLengthArray>

#include <sqlite3.h>

#include <limits>
#include <memory>
#include <new>
#include <optional>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

/// The text of a value, of which the engine hands out one for every field of every row: kept on the stack if it is
/// short.
class Texto {
  public:
    explicit Texto(sqlite3_value* valor) {
        const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(valor));
        const QByteArrayView utf8(bytes, sqlite3_value_bytes(valor));
        m_letras.resize(utf8.size()); // no character takes more units than bytes
        QStringDecoder decodifica(QStringDecoder::Utf8, QStringDecoder::Flag::Stateless);
        m_letras.resize(decodifica.appendToBuffer(m_letras.data(), utf8) - m_letras.data());
    }
    operator QStringView() const { return {m_letras.data(), m_letras.size()}; }

  private:
    QVarLengthArray<QChar, 64> m_letras;
};

void Responde(sqlite3_context* contexto, QStringView texto) {
    const QByteArray bytes = texto.toUtf8();
    sqlite3_result_text(contexto, bytes.constData(), static_cast<int>(bytes.size()), SQLITE_TRANSIENT);
}

/// The engine's codes have a class in their lowest byte and a kind of it above; its general class has three kinds.
constexpr int kBitsDeClase = 8;
constexpr int kPrimeraPropia = 4;

/// Errors can't cross the engine's frames: they become its own error, the number as a kind of the general class, and
/// come back through the statement.
template <typename Funcion>
void Protege(sqlite3_context* contexto, const Funcion& funcion) {
    try {
        funcion();
    } catch (const Error& error) {
        sqlite3_result_error(contexto, error.what(), -1);
        sqlite3_result_error_code(contexto, SQLITE_ERROR | (error.Numero() << kBitsDeClase));
    } catch (const std::bad_alloc&) {
        sqlite3_result_error_nomem(contexto);
    }
}

void Val(sqlite3_context* contexto, int, sqlite3_value** argumentos) {
    Protege(contexto, [&] {
        if (sqlite3_value_type(argumentos[0]) == SQLITE_INTEGER)
            return sqlite3_result_value(contexto, argumentos[0]);
        const Decimal valor = Decimal::Valor(Texto(argumentos[0]));
        const bool cabe = valor.Mantisa() >= std::numeric_limits<qint64>::min() &&
                          valor.Mantisa() <= std::numeric_limits<qint64>::max();
        if (valor.Decimales() == 0 && cabe)
            return sqlite3_result_int64(contexto, static_cast<sqlite3_int64>(valor.Mantisa()));
        sqlite3_result_double(contexto, valor.Texto().toDouble());
    });
}

void FormatDeSql(sqlite3_context* contexto, int, sqlite3_value** argumentos) {
    Protege(contexto, [&] { Responde(contexto, Format(Texto(argumentos[0]), Texto(argumentos[1]))); });
}

/// The engine reckons in binary: a term that has been through that is no longer the amount that was written.
Decimal DecimalDe(sqlite3_value* valor) {
    if (sqlite3_value_type(valor) == SQLITE_FLOAT)
        throw Error(NumeroError::ArgumentoInvalido, u"Una suma de montos pasó por un número binario."_s);
    return Decimal::Valor(Texto(valor));
}

/// What a sum is worth to a client: an amount of money, never below 0. A sum of nothing is 0.
void ImporteDeSql(sqlite3_context* contexto, int, sqlite3_value** argumentos) {
    Protege(contexto, [&] {
        const Importe importe = Importe::Valor(Texto(argumentos[0]));
        Responde(contexto, importe.Signo() < 0 ? u"0"_s : importe.Texto());
    });
}

void Izquierda(sqlite3_context* contexto, int, sqlite3_value** argumentos) {
    Protege(contexto, [&] {
        if (sqlite3_value_type(argumentos[0]) != SQLITE_NULL)
            Responde(contexto, QStringView(Texto(argumentos[0])).left(sqlite3_value_int(argumentos[1])));
    });
}

/// `checksum(primeros, field, field...)`, of a whole row but for the checksum itself.
void ChecksumDeSql(sqlite3_context* contexto, int cuantos, sqlite3_value** argumentos) {
    Protege(contexto, [&] {
        Checksum checksum;
        const int primeros = sqlite3_value_int(argumentos[0]);
        for (int i = 1; i < cuantos; ++i) {
            if (i <= primeros)
                checksum.Numero(Texto(argumentos[i]));
            else
                checksum.Texto(Texto(argumentos[i]));
        }
        Responde(contexto, checksum.Digitos());
    });
}

using Suma = std::optional<Decimal>;

void PasoDeSuma(sqlite3_context* contexto, int, sqlite3_value** argumentos) {
    Protege(contexto, [&] {
        void* memoria = sqlite3_aggregate_context(contexto, sizeof(Suma*));
        auto** suma = static_cast<Suma**>(memoria);
        if (*suma == nullptr)
            *suma = std::make_unique<Suma>().release();
        if (sqlite3_value_type(argumentos[0]) != SQLITE_NULL)
            **suma = (*suma)->value_or(Decimal()) + DecimalDe(argumentos[0]);
    });
}

void FinDeSuma(sqlite3_context* contexto) {
    auto** memoria = static_cast<Suma**>(sqlite3_aggregate_context(contexto, 0));
    const std::unique_ptr<Suma> suma(memoria == nullptr ? nullptr : *memoria);
    if (suma && suma->has_value())
        Responde(contexto, (*suma)->Texto());
}

} // namespace

std::optional<int> NumeroDeFuncion(int codigo) {
    const int numero = codigo >> kBitsDeClase;
    const bool propio = (codigo & 0xff) == SQLITE_ERROR && numero >= kPrimeraPropia;
    return propio ? std::optional(numero) : std::nullopt;
}

void RegistraFunciones(sqlite3* conexion) {
    constexpr int kPura = SQLITE_UTF8 | SQLITE_DETERMINISTIC;
    sqlite3_create_function(conexion, "val", 1, kPura, nullptr, Val, nullptr, nullptr);
    sqlite3_create_function(conexion, "format", 2, kPura, nullptr, FormatDeSql, nullptr, nullptr);
    sqlite3_create_function(conexion, "importe", 1, kPura, nullptr, ImporteDeSql, nullptr, nullptr);
    sqlite3_create_function(conexion, "izquierda", 2, kPura, nullptr, Izquierda, nullptr, nullptr);
    sqlite3_create_function(conexion, "checksum", -1, kPura, nullptr, ChecksumDeSql, nullptr, nullptr);
    sqlite3_create_function(conexion, "sum", 1, kPura, nullptr, nullptr, PasoDeSuma, FinDeSuma);
}

} // namespace xa518
