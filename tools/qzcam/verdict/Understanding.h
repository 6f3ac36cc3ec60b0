// Whether the library understood the text of a parameter. Its setters do not say: a word that they do not
// know often leaves a number in the request all the same. But then any other unknown word leaves the same
// one.
#pragma once

#include "verdict/Influence.h"

#include <string>

namespace qzcam {

// What was made of a value that was written; empty when it was understood.
std::string misunderstanding(Influence& influence, const std::string& key);

// Of a value that was not written although others would be.
std::string whySkipped(const Influence& influence, const std::string& key);

// A value with which the key, of which nothing is written, would be written; empty when there is none.
// `sameVocabulary`: the present value is a word of the same vocabulary, and so understood.
struct Alternative {
    std::string value;
    bool sameVocabulary = false;
};
Alternative findAlternative(Influence& influence, const std::string& key);

}  // namespace qzcam
