#include "tree.h"

#include <ka/framework.h>

namespace ebo_live {

Tree::~Tree() {
    destroyEboConfig(&capture);
    destroyEboAoConfig(&playback);
    destroyEboAgcConfig(&gain);
}

const EboLoad& loadOf(EboLivePart part) {
    switch (part) {
        case EboLivePart::Playback:
            return kEboLoads[kEboAoLoad];
        case EboLivePart::Gain:
            return kEboLoads[kEboAgcLoad];
        default:
            return kEboLoads[kEboFullLoad];
    }
}

namespace {

// Not parseEboAgcConfigsFile(): each of its calls loses a record, which in a product that takes file after
// file would grow without a bound. The section's reader gives the same record and loses nothing.
EboAgcParam* loadGain(const char* path) {
    KAJsonParser parser;
    if (parser.parseFile(path) == 0) return nullptr;
    return parseEboAgcConfigs(&parser, kEboLoads[kEboAgcLoad].root, nullptr);
}

KAEboParam* defaultCapture() {
    KAEboParam* const root = createEboConfigs();
    // The default claims a delay estimator that it has no record of.
    if (root != nullptr) root->aec->model_aec_en &= ~EBO_AEC_DELAY;
    return root;
}

KAEboParam* defaultPlayback() {
    auto* root = static_cast<KAEboParam*>(ka_mem_malloc(sizeof(KAEboParam), __func__));
    if (root == nullptr) return nullptr;
    root->model_en = EBO_PATH_RX;
    root->rx = createEboRxconfig();
    if (root->rx == nullptr) destroyEboAoConfig(&root);
    return root;
}

std::shared_ptr<Tree> holding(EboLivePart part, KAEboParam* root, EboAgcParam* gain) {
    if (root == nullptr && gain == nullptr) return nullptr;
    auto tree = std::make_shared<Tree>();
    (part == EboLivePart::Playback ? tree->playback : tree->capture) = root;
    tree->gain = gain;
    return tree;
}

}  // namespace

std::shared_ptr<Tree> loadTree(EboLivePart part, const char* path) {
    if (part == EboLivePart::Gain) return holding(part, nullptr, loadGain(path));
    return holding(part, part == EboLivePart::Playback ? parseEboAoConfigs(path) : parseEboConfigs(path),
                   nullptr);
}

std::shared_ptr<Tree> defaultTree(EboLivePart part) {
    if (part == EboLivePart::Gain) return holding(part, nullptr, createEboAgcConfig());
    return holding(part, part == EboLivePart::Playback ? defaultPlayback() : defaultCapture(), nullptr);
}

}  // namespace ebo_live
