#include "values/Error.h"

namespace xa518 {

using namespace Qt::StringLiterals;

Error::Error(int numero, QString texto) : m_numero(numero), m_texto(std::move(texto)), m_bytes(m_texto.toUtf8()) {}

Error::Error(NumeroError numero, QString texto) : Error(static_cast<int>(numero), std::move(texto)) {}

Desbordamiento::Desbordamiento() : Error(NumeroError::Desbordamiento, u"Desbordamiento"_s) {}

} // namespace xa518
