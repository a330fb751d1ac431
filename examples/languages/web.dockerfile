# syntax=docker/dockerfile:1
# A web service in Go with a page in JavaScript: built in two stages, run from a small third one.
#
#   docker build -f web.dockerfile --build-arg VERSION=1.4.2 -t web .

ARG GO_VERSION=1.23
ARG NODE_VERSION=22

FROM --platform=$BUILDPLATFORM node:${NODE_VERSION}-slim AS page
WORKDIR /page
COPY package.json package-lock.json ./
RUN --mount=type=cache,target=/root/.npm npm ci
COPY page/ .
RUN npm run build && \
    find dist -name '*.map' -delete && \
    echo "Page of $(date +%F)" > dist/about.txt

FROM --platform=$BUILDPLATFORM golang:${GO_VERSION} AS server
ARG TARGETOS TARGETARCH
ARG VERSION=0.0.0
WORKDIR /src
COPY go.mod go.sum ./
RUN --mount=type=cache,target=/go/pkg/mod go mod download
COPY . .
COPY --from=page /page/dist ./static
RUN --mount=type=cache,target=/root/.cache/go-build \
    CGO_ENABLED=0 GOOS=$TARGETOS GOARCH=$TARGETARCH \
    go build -trimpath -ldflags "-s -w -X 'main.version=${VERSION}'" -o /out/web ./cmd/web
RUN go test ./...   # a broken service does not get an image

FROM debian:bookworm-slim
LABEL org.opencontainers.image.title="web" \
      org.opencontainers.image.description="It's a web service with one page." \
      org.opencontainers.image.licenses='GPL-3.0-or-later'

ENV DEBIAN_FRONTEND=noninteractive \
    LANG=C.UTF-8 \
    WEB_ROOT=/srv/web \
    WEB_PORT=8080

RUN set -eux; \
    apt-get update; \
    apt-get install -y --no-install-recommends ca-certificates curl tini; \
    rm -rf /var/lib/apt/lists/*; \
    groupadd --system --gid 1000 web; \
    useradd --system --uid 1000 --gid web --home-dir "$WEB_ROOT" --shell /usr/sbin/nologin web

# The settings that the service starts with.
COPY <<EOF /etc/web.conf
port = ${WEB_PORT}
root = "${WEB_ROOT}"
greeting = "Don't panic"
EOF

RUN <<EOT
mkdir -p "$WEB_ROOT/data"
chown -R web:web "$WEB_ROOT"
for folder in cache logs; do
  ln -s /tmp "$WEB_ROOT/$folder"
done
EOT

COPY --from=server --chown=web:web --chmod=0755 /out/web /usr/local/bin/web
ADD --checksum=sha256:24454f830cdb571e2c4ad15481119c43b3cafd48dd869a9b2945d1036d1dc68d \
    https://example.org/world.db ${WEB_ROOT}/world.db

VOLUME ["/srv/web/data"]
EXPOSE 8080 8443/tcp
USER web
WORKDIR ${WEB_ROOT}
STOPSIGNAL SIGTERM
HEALTHCHECK --interval=30s --timeout=3s --retries=3 \
    CMD curl --fail --silent "http://localhost:${WEB_PORT:-8080}/health" || exit 1

ENTRYPOINT ["tini", "--", "web"]
CMD ["--config", "/etc/web.conf"]
