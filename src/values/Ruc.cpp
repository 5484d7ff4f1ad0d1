#include "values/Ruc.h"

#include "values/CheckDigits.h"
#include "values/Text.h"

namespace xa518 {

Ruc::Ruc(QStringView texto) : m_texto(Recorta(texto).toString()) {}

bool Ruc::EsValido() const {
    if (m_texto.size() != kLargo || !SonDigitos(m_texto))
        return false;
    QString sinDigito = m_texto.first(kLargo - 1);
    return DigitoVerificador(sinDigito) == m_texto;
}

} // namespace xa518
