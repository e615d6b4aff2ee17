# The files that RunViewer.cmake shows, in SCRATCH.
function(surfaceio)
  execute_process(COMMAND "${PROGRAM}" ${ARGN} WORKING_DIRECTORY "${SCRATCH}" OUTPUT_QUIET COMMAND_ERROR_IS_FATAL ANY)
endfunction()

# A scan with tags, one without, one with colours, one with a texture, and one as a cloud of points.
file(REMOVE_RECURSE "${SCRATCH}")
file(MAKE_DIRECTORY "${SCRATCH}")
file(COPY_FILE "${SCAN}" "${SCRATCH}/tagged.stl")
surfaceio(header set tagged.stl --imported yes)
surfaceio(tags relabel tagged.stl *=1 -o plain.stl)
surfaceio(sample coloured.ply --facets 5000)
surfaceio(sample textured.obj --facets 5000)
surfaceio(sample dense.ply --facets 60000)
execute_process(COMMAND "${CMAKE_COMMAND}" -E env LC_ALL=C sed "s/^element face 60000$/element face 0/" dense.ply
  WORKING_DIRECTORY "${SCRATCH}" OUTPUT_FILE cloud.ply COMMAND_ERROR_IS_FATAL ANY)

# A square, half red and half green: by colours of its faces, and of vertices. Bytes are as printf takes them.
set(begin "ply\nformat binary_little_endian 1.0\nelement vertex ")
set(place "property float x\nproperty float y\nproperty float z\n")
set(corners "element face 2\nproperty list uchar int vertex_indices\n")
set(colour "property uchar red\nproperty uchar green\nproperty uchar blue\n")
set(red "\\377\\0\\0")
set(green "\\0\\377\\0")
foreach(number IN ITEMS 0 1 2 3 4 5)
  set(int${number} "\\${number}\\0\\0\\0")
endforeach()
set(zero "${int0}")
set(one "\\0\\0\\200?")
set(a "${zero}${zero}${zero}")
set(b "${one}${zero}${zero}")
set(c "${zero}${one}${zero}")
set(d "${one}${one}${zero}")
# write_ply(<file> <what printf makes its bytes of>)
function(write_ply file)
  execute_process(COMMAND printf "${ARGN}" OUTPUT_FILE "${SCRATCH}/${file}" COMMAND_ERROR_IS_FATAL ANY)
endfunction()
string(CONCAT by_faces "${begin}4\n${place}${corners}${colour}end_header\n${a}${b}${c}${d}"
  "\\3${int0}${int1}${int2}${red}\\3${int1}${int3}${int2}${green}")
string(CONCAT by_vertices "${begin}6\n${place}${colour}${corners}end_header\n"
  "${a}${red}${b}${red}${c}${red}${b}${green}${d}${green}${c}${green}"
  "\\3${int0}${int1}${int2}\\3${int3}${int4}${int5}")
write_ply(faces.ply "${by_faces}")
write_ply(vertices.ply "${by_vertices}")

# A square with a texture that is another one upside down.
file(WRITE "${SCRATCH}/square.ppm" "P3 2 2 255  255 0 0  0 255 0  0 0 255  255 255 0\n")
file(WRITE "${SCRATCH}/square.mtl" "newmtl four\nmap_Kd square.ppm\n")
file(WRITE "${SCRATCH}/square.obj" "mtllib square.mtl\nusemtl four\nv 0 0 0\nv 1 0 0\nv 0 1 0\nv 1 1 0\n"
  "vt 0 0\nvt 1 0\nvt 0 1\nvt 1 1\nf 1/1 2/2 3/3\nf 2/2 4/4 3/3\n")

# Other formats.
surfaceio(header set coloured.ply --imported yes)
surfaceio(convert coloured.ply record.array)
surfaceio(bundle pack shapes.xml coloured.ply)
file(WRITE "${SCRATCH}/box.msh" "$MeshFormat\n2.2 0 8\n$EndMeshFormat\n$Nodes\n5\n1 0 0 0\n2 1 0 0\n3 0 1 0\n4 0 0 1\n"
  "5 1 1 1\n$EndNodes\n$Elements\n2\n1 4 0 1 2 3 4\n2 4 0 2 3 4 5\n$EndElements\n")
surfaceio(vmesh from box.msh -o box.vmesh)
file(COPY "${GOLDEN}/tree-2.0.shapetree" "${GOLDEN}/shape-2.0.shapetree" DESTINATION "${SCRATCH}")
