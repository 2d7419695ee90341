#pragma once

#include "smart/masking/LabelledValues.h"
#include "smart/masking/RunShape.h"

namespace quorvel {

/// One value with its label, and what can be asked of it.
struct Candidate {
    QStringView text;
    const Label& label;
    const LabelledValue& value;
    QStringView written;
    QString folded;
    RunShape shape;

    QChar after() const;
    bool isAssigned() const { return !value.isFar && isSeparated(); }

    /// The same with other words before the separator.
    bool isSeparated() const {
        return value.separator == Separator::colon || value.separator == Separator::equals ||
               value.separator == Separator::tag;
    }
    bool hasDigit() const { return shape.digits > 0; }

    /// Letters and digits, nothing else.
    bool isPlainWord() const { return shape.symbols == 0; }
};

Candidate candidateFor(QStringView text, const Label& label, const LabelledValue& value);

/// To be filled in later, or filled in at run time: "<password>", "${PASSWORD}", "***".
bool isFiller(const Candidate& candidate);

/// A word that stands after labels in schemas, programs and prose.
bool isOrdinaryValue(const Candidate& candidate);

/// A path, an address of the web or of a person.
bool isLocation(const Candidate& candidate);

/// A call, an index, a member: something that a program computes.
bool isExpression(const Candidate& candidate);

/// A name out of a program: "userPassword", "new_password", "authToken".
bool isNameOfVariable(const Candidate& candidate);

/// More of the same line follows and reads on like a sentence.
bool readsOn(const Candidate& candidate);

/// Several words that say something, rather than a passphrase.
bool isSentence(const Candidate& candidate);

} // namespace quorvel
