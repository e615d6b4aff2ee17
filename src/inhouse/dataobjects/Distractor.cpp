#include "inhouse/dataobjects/Distractor.h"

#include <utility>

Distractor::Distractor(QString const& productId_, QString const& productName_)
    : productId(productId_)
    , productName(productName_)
{}

Distractor::~Distractor() = default;

void Distractor::setAdvancement(std::unique_ptr<DistractorAdvancement> newAdvancement)
{
    advancement = std::move(newAdvancement);
}
