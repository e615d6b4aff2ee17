#pragma once

#include "inhouse/dataobjects/DistractorAdvancement.h"
#include "inhouse/dataobjects/SurfaceTree.h"

class OTHER_INHOUSE_EXPORT Distractor : public SurfaceTree
{
public:
    Distractor(QString const& productId_, QString const& productName_)
        : productId(productId_)
        , productName(productName_)
    {}
    ~Distractor() override;

    QString const& getProductId() const { return productId; }
    QString const& getProductName() const { return productName; }
    void setAdvancement(std::unique_ptr<DistractorAdvancement> model) { advancement = std::move(model); }
    DistractorAdvancement const* getAdvancement() const { return advancement.get(); }

private:
    QString productId;
    QString productName;
    std::unique_ptr<DistractorAdvancement> advancement;
};
