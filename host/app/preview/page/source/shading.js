// Lights, colours and textures as the console mixes them: light per vertex, texels unfiltered, colours unconverted.

/** Directions in which the four lights shine. They are white; a game sets its own. */
export const lightDirections = [
    [-0.4, -0.6, -0.7],
    [0.7, -0.3, -0.64],
    [0.2, -0.4, 0.9],
    [0, 1, 0],
];

/** Ways to draw surfaces. */
export const shadings = { console: 0, plain: 1, primitives: 2 };

/** Matrices stand in a texture, four texels each, so many in a row. */
export const matricesPerRow = 64;

const directionsText = lightDirections.map((axis) => `vec3(${axis.map((part) => part.toFixed(4)).join(", ")})`);

const carrierText = `
uniform highp sampler2D carriers;
in float carrier;
mat4 carrierMatrix() {
    int index = int(carrier + 0.5);
    ivec2 at = ivec2(index % ${matricesPerRow} * 4, index / ${matricesPerRow});
    return mat4(texelFetch(carriers, at, 0), texelFetch(carriers, at + ivec2(1, 0), 0),
                texelFetch(carriers, at + ivec2(2, 0), 0), texelFetch(carriers, at + ivec2(3, 0), 0));
}
`;

export const surfaceVertex = `
const vec3 directions[4] = vec3[4](${directionsText.join(", ")});
uniform int shading;
uniform bool lights[4];
uniform bool isLit, hasColors, isShadow;
uniform vec3 diffuse, ambient, specular, emission;
uniform float alpha;
uniform int coordinateSource; // 0 as sent, 1 placed, 2 normals, 3 positions
uniform bool centersCoordinates;
uniform mat3 placement;
uniform mat4 effect;
in vec3 vertexColor, primitiveColor, edgeDistance;
out vec4 polygonColor;
out vec2 coordinate;
out vec3 seen; // where it stands before the camera
out vec3 toEdges;
${carrierText}
vec3 litColor(vec3 world, vec3 away, vec3 own) {
    vec3 toEye = isOrthographic ? vec3(viewMatrix[0][2], viewMatrix[1][2], viewMatrix[2][2])
                                : normalize(cameraPosition - world);
    vec3 sum = emission;
    for (int i = 0; i < 4; ++i) {
        if (lights[i]) {
            vec3 toLight = -normalize(directions[i]);
            float half_ = max(0.0, dot(away, normalize(toLight + toEye)));
            sum += ambient + own * max(0.0, dot(away, toLight)) + specular * max(0.0, 2.0 * half_ * half_ - 1.0);
        }
    }
    return clamp(sum, 0.0, 1.0);
}
vec2 generated(vec3 from) {
    vec2 mapped = (effect * vec4(from, 0.0)).xy * 0.5;
    vec2 start = centersCoordinates ? vec2(0.5) : (placement * vec3(uv, 1.0)).xy;
    return start + vec2(mapped.x, -mapped.y);
}
void main() {
    mat4 to = carrierMatrix();
    vec4 world = to * vec4(position, 1.0);
    vec3 away = normalize(transpose(inverse(mat3(to))) * normal);
    vec3 own = hasColors ? vertexColor : diffuse;
    polygonColor = vec4(isLit ? litColor(world.xyz, away, own) : own, alpha);
    if (isShadow) {
        polygonColor = vec4(0.0, 0.0, 0.0, alpha * 0.5);
    }
    if (shading == ${shadings.primitives}) {
        polygonColor = vec4(primitiveColor, 1.0);
    }
    coordinate = coordinateSource == 2 ? generated(mat3(viewMatrix) * away)
               : coordinateSource == 3 ? generated(position) : (placement * vec3(uv, 1.0)).xy;
    seen = (viewMatrix * world).xyz;
    toEdges = edgeDistance;
    gl_Position = projectionMatrix * vec4(seen, 1.0);
}
`;

export const surfaceFragment = `
uniform int shading;
uniform bool hasTexture, isDecal, isWire;
uniform sampler2D image;
in vec4 polygonColor;
in vec2 coordinate;
in vec3 seen, toEdges;
out vec4 shown;
void main() {
    if (isWire && all(greaterThan(toEdges, fwidth(toEdges)))) {
        discard;
    }
    shown = polygonColor;
    if (hasTexture && shading == ${shadings.console}) {
        vec4 texel = texture(image, coordinate);
        shown = isDecal ? vec4(mix(polygonColor.rgb, texel.rgb, texel.a), polygonColor.a) : polygonColor * texel;
    }
    if (shading == ${shadings.primitives}) {
        vec3 away = normalize(cross(dFdx(seen), dFdy(seen)));
        shown.rgb *= 0.7 + 0.3 * abs(away.z);
    }
    if (shown.a < 0.5 / 31.0) {
        discard;
    }
}
`;

export const lineVertex = `
${carrierText}
void main() {
    vec4 seen = viewMatrix * carrierMatrix() * vec4(position, 1.0);
    // A little before the surfaces, at the same place of the picture.
    gl_Position = projectionMatrix * (isOrthographic ? seen : vec4(seen.xyz * 0.997, 1.0));
    gl_Position.z -= isOrthographic ? 0.0005 : 0.0;
}
`;

export const lineFragment = `
uniform vec3 lineColor;
uniform float lineAlpha;
out vec4 shown;
void main() {
    shown = vec4(lineColor, lineAlpha);
}
`;
