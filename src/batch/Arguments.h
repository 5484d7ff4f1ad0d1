#pragma once

#include <QDate>
#include <QString>
#include <QStringList>

#include <optional>

namespace xa518 {

enum class Orden { Importar, Declarar, Validar, Imprimir, Exportar, RegistrarOrden, Borrar, Listar };

/// The command line, read. An amount that wasn't given is the missing value, and what is stored then stays.
struct Argumentos {
    Orden orden = Orden::Listar;
    QString ruc;
    QString periodo;                     ///< `yyyymm`
    std::optional<QString> percepciones; ///< absolute: the file of perception vouchers, or its folder
    std::optional<QString> ventas;       ///< absolute: the file of cash sales, or its folder
    std::optional<QString> errores;      ///< absolute: where the refused lines are left as CSV
    bool probar = false;                 ///< checks the files and keeps nothing
    bool todoONada = false;              ///< a refused line keeps the declaration from being saved
    std::optional<QString> pagosPrevios;
    std::optional<QString> interes;
    std::optional<QString> importe;
    bool efectivo = false;
    std::optional<QString> cheque;
    QString banco;
    bool rectifica = false;
    bool otroOriginal = false; ///< though the month was sent already, and this one doesn't rectify it
    bool enviadas = false;
    std::optional<QString> enviada; ///< number of the sent copy that is meant
    bool anexos = false;
    std::optional<QString> pdf;     ///< absolute: the file to print to, or the folder when a declaration is made
    std::optional<QString> carpeta; ///< absolute: where the exported files go
    QString numero;                 ///< of the order, and its check digits
    QString digitos;
    bool json = false;
    std::optional<QDate> hoy;
};

/// What the command line asks for: something to do, or a text to print, with the exit code that goes with it.
struct Lectura {
    std::optional<Argumentos> argumentos;
    QString texto;
    int codigo = 0;
    QString defecto{};     ///< why it can't be read; empty when it can
    bool pideJson = false; ///< wants its answer as JSON, be it that it can't be read
};

/// Reads the arguments, the program's name first.
[[nodiscard]] Lectura LeeArgumentos(const QStringList& argumentos);

} // namespace xa518
