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
    VersionAjena = 3343,
    MotorAjeno = 3170,
};

/// A failure that ends the work at hand: a number for the program and a text, in Spanish, for the person.
class Error : public std::exception {
  public:
    Error(int numero, QString texto);
    Error(NumeroError numero, QString texto);

    [[nodiscard]] int Numero() const noexcept { return m_numero; }
    [[nodiscard]] bool Es(NumeroError numero) const noexcept { return m_numero == static_cast<int>(numero); }
    [[nodiscard]] const QString& Texto() const noexcept { return m_texto; }
    [[nodiscard]] const char* what() const noexcept override { return m_bytes.constData(); }

  private:
    int m_numero;
    QString m_texto;
    QByteArray m_bytes;
};

/// A sum or product that doesn't fit its type. It is never wrapped or clamped.
class Desbordamiento : public Error {
  public:
    Desbordamiento();
};

} // namespace xa518
