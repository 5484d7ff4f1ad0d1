#pragma once

#include <QList>
#include <QString>

namespace xa518 {

class Base;
struct Tramo;

/// The reads of the shared catalogue `PARAM`, the error texts and the users. A missing row is no error: it gives the
/// empty text or the default told at each.
class Catalogo {
  public:
    explicit Catalogo(Base& base) : m_base(&base) {}

    /// A piece of `Funcion`: note that the length comes before the position.
    [[nodiscard]] QString FuncionParam(const QString& numero, const QString& argumento, int largo, int inicio) const;
    [[nodiscard]] QString FuncionParam(const QString& numero, const QString& argumento, const Tramo& tramo) const;
    /// The whole `Funcion` of a row; empty when there is none.
    [[nodiscard]] QString Funcion(const QString& numero, const QString& argumento) const;

    /// The text of a four-digit error code, given with or without its leading zeros.
    [[nodiscard]] QString DescError(const QString& codigo) const;

    /// The kind of a user: "0" sees all declarants; "1", also for an unknown user, only his own.
    [[nodiscard]] QString TipoUsuario(const QString& usuario) const;

  private:
    Base* m_base;
};

/// The banks of the catalogue, by code; its columns are `codigo` and `descrip`.
[[nodiscard]] QString SqlBancos();

struct BancoOfrecido {
    QString codigo;
    QString descripcion;
};
[[nodiscard]] QList<BancoOfrecido> BancosOfrecidos(Base& base);

} // namespace xa518
