#include "Viewport.h"

#include "Corners.h"

#include <QMouseEvent>
#include <QWheelEvent>

#include <algorithm>
#include <cmath>

namespace {

constexpr char const* vertexShader = R"(
    attribute highp vec3 position;
    attribute mediump vec3 normal;
    attribute mediump vec4 colour;
    attribute mediump vec2 coordinate;
    uniform highp mat4 view;
    uniform highp mat4 projection;
    varying mediump vec3 direction;
    varying mediump vec4 shade;
    varying mediump vec2 place;
    void main() {
        direction = (view * vec4(normal, 0.0)).xyz;
        shade = colour;
        place = coordinate;
        gl_PointSize = 4.0;
        gl_Position = projection * view * vec4(position, 1.0);
    })";
constexpr char const* fragmentShader = R"(
    uniform sampler2D image;
    uniform bool textured;
    varying mediump vec3 direction;
    varying mediump vec4 shade;
    varying mediump vec2 place;
    void main() {
        mediump vec4 base = textured ? texture2D(image, place) : shade;
        mediump float size = length(direction); // points may have no normal
        mediump float facing = size > 0.0 ? abs(direction.z) / size : 1.0;
        gl_FragColor = vec4(base.rgb * (0.3 + 0.7 * facing), 1.0);
    })";
constexpr char const* attributes[] = {"position", "normal", "colour", "coordinate"};
constexpr double mostRise = 89.9;
// OpenGL ES, where shaders always set the size of points, has no name for it.
constexpr GLenum pointSizeByShader = 0x8642;

} // namespace

Viewport::Viewport(QWidget* parent)
    : QOpenGLWidget(parent)
{
    QSurfaceFormat format;
    format.setDepthBufferSize(24);
    format.setSamples(4);
    setFormat(format);
    lookFrom({-4, 7, 8});
}

Viewport::~Viewport()
{
    makeCurrent();
    release();
    doneCurrent();
}

void Viewport::setScene(Scene const& newScene)
{
    scene = newScene;
    zoom = 1;
    changed = true; // the buffers are filled when there is a context
    update();
}

void Viewport::lookFrom(QVector3D const& direction)
{
    QVector3D const unit = direction.normalized();
    turn = qRadiansToDegrees(std::atan2(double(unit.y()), double(unit.x())));
    rise = std::clamp(qRadiansToDegrees(std::asin(double(unit.z()))), -mostRise, mostRise);
    update();
}

void Viewport::initializeGL()
{
    initializeOpenGLFunctions();
    program.addShaderFromSourceCode(QOpenGLShader::Vertex, vertexShader);
    program.addShaderFromSourceCode(QOpenGLShader::Fragment, fragmentShader);
    for (int i = 0; i < int(std::size(attributes)); ++i)
        program.bindAttributeLocation(attributes[i], i);
    program.link();
    if (!context()->isOpenGLES())
        glEnable(pointSizeByShader);
}

void Viewport::upload()
{
    release();
    for (Part const& part : scene.parts) {
        batches.push_back(std::make_unique<Batch>());
        fill(*batches.back(), part);
    }
    changed = false;
}

void Viewport::fill(Batch& batch, Part const& part)
{
    std::vector<Corner> const corners = cornersOf(part);
    batch.corners = int(corners.size());
    batch.kind = part.mesh.indices.isEmpty() ? GL_POINTS : GL_TRIANGLES;
    batch.array.create();
    QOpenGLVertexArrayObject::Binder const bound(&batch.array);
    batch.buffer.create();
    batch.buffer.bind();
    batch.buffer.allocate(corners.data(), int(corners.size() * sizeof(Corner)));
    constexpr int sizes[] = {3, 3, 4, 2};
    std::size_t offset = 0;
    for (int i = 0; i < int(std::size(sizes)); ++i) {
        glEnableVertexAttribArray(GLuint(i));
        glVertexAttribPointer(GLuint(i), sizes[i], GL_FLOAT, GL_FALSE, sizeof(Corner),
                              reinterpret_cast<void const*>(offset));
        offset += std::size_t(sizes[i]) * sizeof(float);
    }
    // v = 0 is the bottom row of a texture, as OpenGL has it.
    if (!part.texture.isNull() && !part.mesh.textureCoordinates.isEmpty())
        batch.texture = std::make_unique<QOpenGLTexture>(part.texture.mirrored());
}

void Viewport::release()
{
    batches.clear();
}

QMatrix4x4 Viewport::viewMatrix() const
{
    double const up = qDegreesToRadians(rise);
    double const around = qDegreesToRadians(turn);
    QVector3D const toViewer(float(std::cos(up) * std::cos(around)), float(std::cos(up) * std::sin(around)),
                             float(std::sin(up)));
    QMatrix4x4 view;
    view.lookAt(toViewer, {}, {0, 0, 1});
    return view;
}

QMatrix4x4 Viewport::projection(QMatrix4x4 const& view) const
{
    Box const box = boundsOf(scene, view);
    QVector3D const half = box.size() / 2;
    float const aspect = float(width()) / float(std::max(1, height()));
    constexpr float margin = 1.1f;
    float const tall = std::max({half.y(), half.x() / aspect, 1e-6f}) * margin / float(zoom);
    QVector3D const centre = box.centre();
    float const deep = std::max(half.z(), 1e-6f) * margin;
    QMatrix4x4 matrix;
    matrix.ortho(centre.x() - tall * aspect, centre.x() + tall * aspect, centre.y() - tall, centre.y() + tall,
                 -centre.z() - deep, -centre.z() + deep);
    return matrix;
}

void Viewport::paintGL()
{
    if (changed)
        upload();
    glClearColor(1, 1, 1, 1);
    glClear(GL_COLOR_BUFFER_BIT | GL_DEPTH_BUFFER_BIT);
    glEnable(GL_DEPTH_TEST);
    program.bind();
    QMatrix4x4 const view = viewMatrix();
    program.setUniformValue("view", view);
    program.setUniformValue("projection", projection(view));
    program.setUniformValue("image", 0);
    for (auto const& batch : batches) {
        QOpenGLVertexArrayObject::Binder const bound(&batch->array);
        program.setUniformValue("textured", bool(batch->texture));
        if (batch->texture)
            batch->texture->bind(0);
        glDrawArrays(batch->kind, 0, batch->corners);
    }
    program.release();
}

void Viewport::mousePressEvent(QMouseEvent* event)
{
    grip = event->position();
}

void Viewport::mouseMoveEvent(QMouseEvent* event)
{
    QPointF const moved = event->position() - grip;
    grip = event->position();
    turn -= moved.x() / 2;
    rise = std::clamp(rise + moved.y() / 2, -mostRise, mostRise);
    update();
}

void Viewport::wheelEvent(QWheelEvent* event)
{
    constexpr double notch = 1200;
    zoom = std::clamp(zoom * std::exp2(event->angleDelta().y() / notch * 2), 0.1, 100.0);
    update();
}
