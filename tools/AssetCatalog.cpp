#include "tools/AssetCatalog.h"

#include "tools/CameraPathMaker.h"
#include "tools/FileWriter.h"
#include "tools/FontImageMaker.h"
#include "tools/HeightMapMaker.h"
#include "tools/ModelMaker.h"
#include "tools/MusicComposer.h"
#include "tools/ObjConverter.h"
#include "tools/PngWriter.h"
#include "tools/TextureSet.h"

namespace qlntools {

namespace {

AssetCatalog::Asset text(const std::string& path, std::string (*content)()) {
    return {path, [content](const std::string&, const std::string& out, std::string& error) {
                return FileWriter::write(out, content(), error);
            }};
}

AssetCatalog::Asset converted(const std::string& model, const std::string& object) {
    return {"objects/" + object, [model](const std::string& resources, const std::string& out, std::string& error) {
                return ObjConverter::convertFile(resources + "/models/" + model, out, error);
            }};
}

}  // namespace

const std::vector<AssetCatalog::Asset>& AssetCatalog::assets() {
    static const std::vector<Asset> list = [] {
        std::vector<Asset> all;
        all.push_back({"gfx/font.png", [](const std::string&, const std::string& out, std::string& error) {
                           return FontImageMaker::write(out, error);
                       }});
        for (const TextureSet::Entry& e : TextureSet::entries())
            all.push_back({"gfx/" + e.file, [e](const std::string&, const std::string& out, std::string& error) {
                               return PngWriter::write(out, e.paint(), e.channels, error);
                           }});
        all.push_back({"misc/heightmap.bin", [](const std::string&, const std::string& out, std::string& error) {
                           return HeightMapMaker::write(out, error);
                       }});
        all.push_back(text("misc/camera.ani", CameraPathMaker::text));
        all.push_back(text("models/logo.obj", ModelMaker::logoObj));
        all.push_back(text("models/logo.mtl", ModelMaker::logoMtl));
        all.push_back(text("models/star.obj", ModelMaker::starObj));
        all.push_back(converted("cube.obj", "cube.qlo"));
        all.push_back(converted("logo.obj", "logo.qlo"));
        all.push_back(converted("star.obj", "star.qlo"));
        all.push_back({"music/quillon.mod", [](const std::string&, const std::string& out, std::string& error) {
                           return MusicComposer::write(out, error);
                       }});
        return all;
    }();
    return list;
}

}  // namespace qlntools
