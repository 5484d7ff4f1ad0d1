#pragma once

#include <QString>

#include <exception>

namespace xa518 {

/// Numbers of the errors that the messages show and that callers tell apart.
enum class NumeroError : int {
    ArgumentoInvalido = 5,
    Desbordamiento = 6,
    ArchivoNoEncontrado = 53,
    AccesoAlDisco = 57,
    TablaNoExiste = 3011,
    ClaveDuplicada = 3022,
    BaseNoExiste = 3024,
    GrupoNoExiste = 3028,
    CuentaRechazada = 3029,
    BaseBloqueada = 3051,
    CampoNoExiste = 3061,
    FallaDelMotor = 3146,
    ConexionPerdida = 3151,
    Conflicto = 3197,
    VersionAjena = 3343,
    MotorAjeno = 3170,
};

/// A failure that ends the work at hand: a number for the program, a text, in Spanish, for the person, and in the words
/// of the engine or the system, whatever their language, a detail for whoever is asked for help.
class Error : public std::exception {
  public:
    Error(int numero, QString texto, QString detalle = {});
    Error(NumeroError numero, QString texto, QString detalle = {});

    [[nodiscard]] int Numero() const noexcept { return m_numero; }
    [[nodiscard]] bool Es(NumeroError numero) const noexcept { return m_numero == static_cast<int>(numero); }
    [[nodiscard]] const QString& Texto() const noexcept { return m_texto; }
    /// Empty when the text says all that is known. It is for the standard error, never for a message.
    [[nodiscard]] const QString& Detalle() const noexcept { return m_detalle; }
    [[nodiscard]] const char* what() const noexcept override { return m_bytes.constData(); }

  private:
    int m_numero;
    QString m_texto;
    QString m_detalle;
    QByteArray m_bytes;
};

/// Writes an error's detail to the standard error, if it has one: to be called where a window shows its text.
void AnotaDetalle(const Error& error);

/// A sum or product that doesn't fit its type. It is never wrapped or clamped.
class Desbordamiento : public Error {
  public:
    Desbordamiento();
};

} // namespace xa518
