#include "exchange/LectorHoja.h"

#include "core/vb/Error.h"
#include "core/vb/Fecha.h"
#include "core/vb/Variant.h"
#include "exchange/LectorXls.h"
#include "exchange/LectorXlsx.h"

#include <QFileInfo>

namespace intercambio {

bool EsLibroXlsx(const QString& ruta) { return ruta.endsWith(QLatin1String(".xlsx"), Qt::CaseInsensitive); }

std::unique_ptr<LectorHoja> LectorPara(const QString& ruta) {
    if (EsLibroXlsx(ruta)) return std::make_unique<LectorXlsx>();
    return std::make_unique<LectorXls>();
}

QString TextoDeNumero(double valor) { return vb::Variant(valor).toString(); }

QString TextoDeSerial(double valor, double desplazamiento) {
    try {
        return vb::Variant(vb::Fecha::fromSerial(valor + desplazamiento)).toString();
    } catch (const vb::Error&) {
        return TextoDeNumero(valor);
    }
}

void ErrorLibro(const QString& ruta, const QString& motivo) {
    throw vb::Error(1004, QStringLiteral("No se pudo abrir el libro '") + QFileInfo(ruta).fileName() + QStringLiteral("': ") +
                              motivo + u'.');
}

}  // namespace intercambio
