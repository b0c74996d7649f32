#include "model/FovixModel.h"

#include <utility>

namespace fovix {

ModelPtr FovixModel_Create(const FovixModelOperations& operations, std::unique_ptr<ModelParams> params) {
    auto model = std::make_unique<FovixModel>();
    model->operations = operations;
    model->params = std::move(params);
    return {model.release(), operations.release};
}

ModelPtr FovixModel_CreateEmpty() {
    return std::make_shared<FovixModel>();
}

void FovixModel_Release(FovixModel* model) {
    delete model;
}

void FovixModel_SetViewSize(FovixModel& model, int width, int height) {
    model.backingWidth = width;
    model.backingHeight = height;
}

int FovixModel_NeedContinue(FovixModel&) {
    return 0;
}

double FovixModel_GetTextureScale(FovixModel& model) {
    return model.textureScale;
}

}  // namespace fovix
