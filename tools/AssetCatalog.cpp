#include "tools/AssetCatalog.h"

#include "qlnutils/PngWriter.h"
#include "tools/CameraPathMaker.h"
#include "tools/FileWriter.h"
#include "tools/FontImageMaker.h"
#include "tools/HeightMapMaker.h"
#include "tools/ModelMaker.h"
#include "tools/MusicComposer.h"
#include "tools/ObjConverter.h"
#include "tools/TextureSet.h"

namespace qlntools {

namespace {

AssetCatalog::Asset text(const std::string& path, std::string (*content)()) {
    return {path, [content](const std::string&, const std::string& out, std::string& error) {
                return FileWriter::write(out, content(), error);
            }};
}

// Textures are stored at zlib's best compression: they are made once and read often.
AssetCatalog::Asset picture(const std::string& path, const std::function<Picture()>& paint, int channels) {
    return {path, [paint, channels](const std::string&, const std::string& out, std::string& error) {
                const Picture p = paint();
                std::string bytes;
                if (!PngWriter::encode(p.toBytes(channels).data(), p.width(), p.height(), channels, 9, bytes)) {
                    error = "cannot encode '" + out + "' as PNG";
                    return false;
                }
                return FileWriter::write(out, bytes, error);
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
        all.push_back(picture("gfx/font.png", FontImageMaker::paint, 4));
        for (const TextureSet::Entry& e : TextureSet::entries()) all.push_back(picture("gfx/" + e.file, e.paint, e.channels));
        all.push_back(text("misc/heightmap.bin", HeightMapMaker::bytes));
        all.push_back(text("misc/camera.ani", CameraPathMaker::text));
        // The models come before the objects converted from them.
        all.push_back(text("models/logo.obj", ModelMaker::logoObj));
        all.push_back(text("models/logo.mtl", ModelMaker::logoMtl));
        all.push_back(text("models/star.obj", ModelMaker::starObj));
        all.push_back(converted("cube.obj", "cube.qlo"));
        all.push_back(converted("logo.obj", "logo.qlo"));
        all.push_back(converted("star.obj", "star.qlo"));
        all.push_back({"music/quillon.mod", [](const std::string&, const std::string& out, std::string& error) {
                           std::string bytes;
                           return MusicComposer::compose().encode(bytes, error) && FileWriter::write(out, bytes, error);
                       }});
        return all;
    }();
    return list;
}

}  // namespace qlntools
