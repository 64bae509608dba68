#include "demosys/QLNMeshData.h"

QLNMeshData::QLNMeshData()
    : hasMaterial(false), material(), translation(), bboxMin(), bboxMax(), vertexCount(0),
      vertexSize(0), normalSize(0), uvSize(0), polygonCount(0) {}

bool QLNMeshData::hasDrawableLayout() const {
    return vertexSize >= 2 && vertexSize <= 4 && (normalSize == 0 || normalSize == 3) && uvSize >= 0 &&
           uvSize <= 4;
}

int QLNMeshData::floatsPerVertex() const { return vertexSize + normalSize + uvSize; }

int QLNMeshData::usableVertexCount() const {
    int stride = floatsPerVertex();
    return stride > 0 ? (int)(vertices.size() / stride) : 0;
}

int QLNMeshData::usableTriangleCount() const { return (int)(indices.size() / 3); }
