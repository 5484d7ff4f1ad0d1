#include "data/SqliteEngine.h"
#include "values/Decimal.h"
#include "values/Error.h"
#include "values/Format.h"

#include <sqlite3.h>

#include <limits>
#include <memory>
#include <new>
#include <optional>

namespace xa518 {

using namespace Qt::StringLiterals;

namespace {

QString TextoDe(sqlite3_value* valor) {
    const auto* bytes = reinterpret_cast<const char*>(sqlite3_value_text(valor));
    return QString::fromUtf8(bytes, sqlite3_value_bytes(valor));
}

void Responde(sqlite3_context* contexto, const QString& texto) {
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
        const Decimal valor = Decimal::Valor(TextoDe(argumentos[0]));
        const bool cabe = valor.Mantisa() >= std::numeric_limits<qint64>::min() &&
                          valor.Mantisa() <= std::numeric_limits<qint64>::max();
        if (valor.Decimales() == 0 && cabe)
            return sqlite3_result_int64(contexto, static_cast<sqlite3_int64>(valor.Mantisa()));
        sqlite3_result_double(contexto, valor.Texto().toDouble());
    });
}

void FormatDeSql(sqlite3_context* contexto, int, sqlite3_value** argumentos) {
    Protege(contexto, [&] { Responde(contexto, Format(TextoDe(argumentos[0]), TextoDe(argumentos[1]))); });
}

/// The engine reckons in binary: a term that has been through that is no longer the amount that was written.
Decimal DecimalDe(sqlite3_value* valor) {
    if (sqlite3_value_type(valor) == SQLITE_FLOAT)
        throw Error(NumeroError::ArgumentoInvalido, u"Una suma de montos pasó por un número binario."_s);
    return Decimal::Valor(TextoDe(valor));
}

/// What a sum is worth to a client: an amount of money, never below 0. A sum of nothing is 0.
void ImporteDeSql(sqlite3_context* contexto, int, sqlite3_value** argumentos) {
    Protege(contexto, [&] {
        const Importe importe = Importe::Valor(TextoDe(argumentos[0]));
        Responde(contexto, importe.Signo() < 0 ? u"0"_s : importe.Texto());
    });
}

void Izquierda(sqlite3_context* contexto, int, sqlite3_value** argumentos) {
    Protege(contexto, [&] {
        if (sqlite3_value_type(argumentos[0]) != SQLITE_NULL)
            Responde(contexto, TextoDe(argumentos[0]).left(sqlite3_value_int(argumentos[1])));
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
    sqlite3_create_function(conexion, "sum", 1, kPura, nullptr, nullptr, PasoDeSuma, FinDeSuma);
}

} // namespace xa518
