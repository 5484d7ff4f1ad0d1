#include "values/DocumentCode.h"

#include "values/Text.h"

namespace xa518 {

CodigoDocumento CodigoDocumento::De(QStringView texto) {
    return CodigoDocumento(Recorta(texto).toInt());
}

QString CodigoDocumento::Texto() const {
    return EstaVacio() ? QString() : QString::number(m_valor).rightJustified(2, u'0');
}

} // namespace xa518
