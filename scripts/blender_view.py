# Renders a glTF file of orbisett-host --gltf in Blender, headless, as a check by another program
# than ours: blender -b --python scripts/blender_view.py -- FILE.glb PICTURE.png
# The layers are shown where the run put them (the animation's last key), from a raised camera in
# front of the composition; the surface and the composition's frame, lines in the file, are drawn
# as thin tubes, since Blender renders no bare lines.
import sys

import numpy

# The glTF add-on of Blender 3.4 still uses an alias that numpy has since dropped.
numpy.bool = bool

import bpy
from mathutils import Vector

glb, png = sys.argv[sys.argv.index("--") + 1:]
bpy.ops.wm.read_factory_settings(use_empty=True)
bpy.ops.import_scene.gltf(filepath=glb)
scene = bpy.context.scene

# The animation's last key: where the run put the layers.
scene.frame_set(scene.frame_end)

for name in ("Surface", "Composition frame"):
    line = scene.objects.get(name)
    if line is not None:
        bpy.context.view_layer.objects.active = line
        for o in scene.objects:
            o.select_set(o == line)
        materials = list(line.data.materials)
        bpy.ops.object.convert(target="CURVE")
        line.data.bevel_depth = 0.03
        for material in materials:
            if material.name not in line.data.materials:
                line.data.materials.append(material)

# Everything the file holds, framed from above and in front (Blender's -Y is glTF's +Z, the viewer's side).
meshes = [o for o in scene.objects if o.type in {"MESH", "CURVE"}]
points = [o.matrix_world @ Vector(c) for o in meshes for c in o.bound_box]
low = Vector(tuple(min(p[i] for p in points) for i in range(3)))
high = Vector(tuple(max(p[i] for p in points) for i in range(3)))
centre = (low + high) / 2
radius = (high - low).length / 2
camera = bpy.data.objects.new("View", bpy.data.cameras.new("View"))
scene.collection.objects.link(camera)
camera.data.lens = 32
direction = Vector((0.45, -1.0, 0.55)).normalized()
camera.location = centre + direction * radius * 3.0
camera.rotation_euler = (-direction).to_track_quat("-Z", "Y").to_euler()
scene.camera = camera

world = bpy.data.worlds.new("Background")
world.use_nodes = True
world.node_tree.nodes["Background"].inputs[0].default_value = (0.922, 0.930, 0.947, 1)
scene.world = world
scene.view_settings.view_transform = "Standard"
scene.render.engine = "CYCLES"
scene.cycles.device = "CPU"
scene.cycles.samples = 32
scene.cycles.use_denoising = False
scene.render.resolution_x = 1280
scene.render.resolution_y = 720
# Flat colours without dither keep the picture's file small.
scene.render.dither_intensity = 0
scene.render.image_settings.compression = 100
scene.render.filepath = png
bpy.ops.render.render(write_still=True)
