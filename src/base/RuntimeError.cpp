#include "base/RuntimeError.h"

#include "base/Literals.h"

#include <array>

namespace vorta {

namespace {

struct StandardWords {
    int number;
    const char* words;
};

constexpr std::array standardWords{
    StandardWords{errorNumber::Overflow, "Número fora da faixa que o campo aceita"},
    StandardWords{errorNumber::OutOfMemory, "Memória insuficiente"},
    StandardWords{errorNumber::TypeMismatch, "Valor de tipo incompatível"},
    StandardWords{errorNumber::InternalError, "Erro interno"},
    StandardWords{errorNumber::BadFileName, "Nome de arquivo inválido"},
    StandardWords{errorNumber::FileNotFound, "Arquivo não encontrado"},
    StandardWords{errorNumber::FileAlreadyExists, "O arquivo já existe"},
    StandardWords{errorNumber::DiskFull, "O disco está cheio"},
    StandardWords{errorNumber::PermissionDenied, "Permissão negada"},
    StandardWords{errorNumber::PathRefused, "O caminho não pode ser gravado"},
    StandardWords{errorNumber::ObjectNotSet, "Objeto não disponível"},
    StandardWords{errorNumber::InvalidNull, "Uso inválido de nulo"},
    StandardWords{errorNumber::OutsideGrid, "Linha ou coluna fora da grade"},
    StandardWords{errorNumber::NoSuchMember, "O objeto não tem este campo ou operação"},
    StandardWords{errorNumber::NoCurrentRow, "Não há registro corrente"},
    StandardWords{errorNumber::NoSuchColumn, "Coluna não encontrada no resultado"},
    StandardWords{errorNumber::ObjectClosed, "Operação não permitida com o objeto fechado"},
    StandardWords{errorNumber::ConnectionFailed, "Falha de conexão com o banco de dados"},
    StandardWords{errorNumber::StatementRefused, "Comando recusado pelo banco de dados"},
    StandardWords{errorNumber::ConstraintViolated, "Gravação recusada por uma restrição do banco de dados"},
};

QString wordsOf(int number, const QString& description) {
    if (!description.isEmpty())
        return description;
    for (const StandardWords& row : standardWords)
        if (row.number == number)
            return QString::fromUtf8(row.words);
    return u"Erro em tempo de execução"_s;
}

} // namespace

RuntimeError::RuntimeError(int number, const QString& description) : RuntimeError(number, description, 0, {}, {}) {}

RuntimeError::RuntimeError(int number, const QString& description, int engineCode, const QString& sqlState,
                           const QString& statement)
    : number_(number), description_(wordsOf(number, description)), engineCode_(engineCode), sqlState_(sqlState),
      statement_(statement), utf8_((QString::number(number_) + u" - "_s + description_).toUtf8()) {}

} // namespace vorta
