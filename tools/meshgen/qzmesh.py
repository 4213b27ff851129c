"""Writes binary mesh and skeleton files in the chunk format the engine's
MeshSerializer and SkeletonSerializer read. Little-endian, header 0x1000.

A chunk is u16 id, u32 length (header included), then its payload with
nested chunks behind its own fields. Skeleton bone and key-frame chunks
carry the length the reader uses to tell whether a scale follows: 36 / 48
for a bone and 38 / 50 for a key frame, the bone's name not counted.

Every float passes through f32() before it is stored, so that the values a
caller keeps are exactly the ones in the file.
"""
import struct

MESH_VERSION = "[MeshSerializer_v1.8]"
SKELETON_VERSION = "[Serializer_v1.10]"

# Vertex element types and semantics used here.
FLOAT2, FLOAT3, UBYTE4 = 1, 2, 9
POSITION, BLEND_WEIGHTS, BLEND_INDICES, NORMAL, TEXCOORD = 1, 2, 3, 4, 7


def f32(v):
    return struct.unpack("<f", struct.pack("<f", v))[0]


def u16(v):
    return struct.pack("<H", v)


def u32(v):
    return struct.pack("<I", v)


def flt(*vs):
    return b"".join(struct.pack("<f", v) for v in vs)


def boolean(v):
    return b"\x01" if v else b"\x00"


def string(s):
    return s.encode("utf-8") + b"\n"


def chunk(cid, payload, length=None):
    return u16(cid) + u32(6 + len(payload) if length is None else length) + payload


def mesh_bytes(mesh):
    """mesh: dict with "submeshes" (list of dicts: material, indices, idx32,
    vertex_count, elements [(source, type, semantic, offset, index)],
    buffers {bind: bytes}, operation, bone_assignments [(v, bone, w)]),
    optional "skeleton", "bounds" ((min3), (max3), radius), "names"
    [(index, name)], "poses" [(name, target, [(v, (dx, dy, dz))])],
    "animations" [(name, length, [(type, handle, [(time, [(pose, infl)])])])]."""
    body = boolean(bool(mesh.get("skeleton")))
    for sm in mesh["submeshes"]:
        idx = sm["indices"]
        p = string(sm["material"]) + boolean(False) + u32(len(idx)) + boolean(sm.get("idx32", False))
        p += b"".join((u32 if sm.get("idx32", False) else u16)(i) for i in idx)
        geo = u32(sm["vertex_count"])
        decl = b"".join(chunk(0x5110, u16(s) + u16(t) + u16(se) + u16(o) + u16(ix))
                        for s, t, se, o, ix in sm["elements"])
        geo += chunk(0x5100, decl)
        for bind, data in sorted(sm["buffers"].items()):
            size = len(data) // sm["vertex_count"]
            geo += chunk(0x5200, u16(bind) + u16(size) + chunk(0x5210, data))
        p += chunk(0x5000, geo)
        p += chunk(0x4010, u16(sm.get("operation", 4)))
        for v, b, w in sm.get("bone_assignments", []):
            p += chunk(0x4100, u32(v) + u16(b) + flt(w))
        body += chunk(0x4000, p)
    if mesh.get("skeleton"):
        body += chunk(0x6000, string(mesh["skeleton"]))
    if "bounds" in mesh:
        lo, hi, radius = mesh["bounds"]
        body += chunk(0x9000, flt(*lo) + flt(*hi) + flt(radius))
    if mesh.get("names"):
        body += chunk(0xA000, b"".join(chunk(0xA100, u16(i) + string(n)) for i, n in mesh["names"]))
    if mesh.get("poses"):
        poses = b""
        for name, target, verts in mesh["poses"]:
            pv = b"".join(chunk(0xC111, u32(v) + flt(*off)) for v, off in verts)
            poses += chunk(0xC100, string(name) + u16(target) + boolean(False) + pv)
        body += chunk(0xC000, poses)
    if mesh.get("animations"):
        anims = b""
        for name, length, tracks in mesh["animations"]:
            tb = b""
            for atype, handle, frames in tracks:
                fb = b""
                for time, refs in frames:
                    rb = b"".join(chunk(0xD113, u16(pi) + flt(infl)) for pi, infl in refs)
                    fb += chunk(0xD112, flt(time) + rb)
                tb += chunk(0xD110, u16(atype) + u16(handle) + fb)
            anims += chunk(0xD100, string(name) + flt(length) + tb)
        body += chunk(0xD000, anims)
    return u16(0x1000) + string(MESH_VERSION) + chunk(0x3000, body)


def skeleton_bytes(skel):
    """skel: dict with "bones" [(name, handle, pos3, quat_xyzw, scale3 or None)],
    "parents" [(child, parent)], "animations" [(name, length,
    [(bone, [(time, quat_xyzw, trans3, scale3 or None)])])]."""
    out = u16(0x1000) + string(SKELETON_VERSION)
    out += chunk(0x1010, u16(0))
    for name, handle, pos, quat, scale in skel["bones"]:
        p = string(name) + u16(handle) + flt(*pos) + flt(*quat)
        if scale is not None:
            p += flt(*scale)
        out += chunk(0x2000, p, 48 if scale is not None else 36)
    for child, parent in skel.get("parents", []):
        out += chunk(0x3000, u16(child) + u16(parent))
    for name, length, tracks in skel.get("animations", []):
        tb = b""
        for bone, frames in tracks:
            fb = b""
            for time, quat, trans, scale in frames:
                p = flt(time) + flt(*quat) + flt(*trans)
                if scale is not None:
                    p += flt(*scale)
                fb += chunk(0x4110, p, 50 if scale is not None else 38)
            tb += chunk(0x4100, u16(bone) + fb)
        out += chunk(0x4000, string(name) + flt(length) + tb)
    return out


def vertex_buffer(rows):
    """rows: per vertex a list of (format, values) packed in order."""
    return b"".join(b"".join(struct.pack("<" + fmt, *vals) for fmt, vals in row) for row in rows)
