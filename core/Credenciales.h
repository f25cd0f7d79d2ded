#pragma once
// The scrambled credential record of Analistas.password: "login,clave,derechos,modulos", each character
// XOR-ed with a fixed eight-character key and written as two hexadecimal digits.
#include <QString>

namespace credenciales {

QString DescifraClave(const QString& guardado);
QString CifraClave(const QString& plano);

// The record for an analyst: login as the table spells it, password, three digits of rights ("011"),
// one digit per module of the suite (the first admits to this module).
QString Registro(const QString& login, const QString& clave, const QString& derechos, const QString& modulos);

}  // namespace credenciales
