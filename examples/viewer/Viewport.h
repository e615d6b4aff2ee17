#pragma once

#include "Scene.h"

#include <QMatrix4x4>
#include <QOpenGLBuffer>
#include <QOpenGLFunctions>
#include <QOpenGLShaderProgram>
#include <QOpenGLTexture>
#include <QOpenGLVertexArrayObject>
#include <QOpenGLWidget>
#include <QPointF>

#include <memory>
#include <vector>

/// Draws a scene, seen from infinitely far, with one light at the viewer. Dragging turns it about the z axis
/// and up and down, the wheel makes it larger.
class Viewport : public QOpenGLWidget, protected QOpenGLFunctions
{
    Q_OBJECT

public:
    explicit Viewport(QWidget* parent = nullptr);
    ~Viewport() override;

    /// Shows the scene as large as fits.
    void setScene(Scene const& newScene);
    /// Looks at the model from this direction, with the z axis upwards.
    void lookFrom(QVector3D const& direction);

protected:
    void initializeGL() override;
    void paintGL() override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;

private:
    struct Batch
    {
        QOpenGLVertexArrayObject array;
        QOpenGLBuffer buffer;
        std::unique_ptr<QOpenGLTexture> texture;
        int corners = 0;
        GLenum kind = GL_TRIANGLES;
    };

    void upload();
    void fill(Batch& batch, Part const& part);
    void release();
    QMatrix4x4 viewMatrix() const;
    QMatrix4x4 projection(QMatrix4x4 const& view) const;

    Scene scene;
    bool changed = false;
    std::vector<std::unique_ptr<Batch>> batches;
    QOpenGLShaderProgram program;
    double turn = 0;
    double rise = 0;
    double zoom = 1;
    QPointF grip;
};
