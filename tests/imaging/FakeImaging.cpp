#include "imaging/FakeImaging.h"

#include "support/CallTrace.h"

#include <cstdint>
#include <cstring>
#include <string>

namespace
{
// What the objects of a component share.
struct Scene
{
    CallLog& log;
    ArgbImage picture;
    ImagingStep failing = ImagingStep::None;

    HRESULT ResultOf(ImagingStep step) const { return step == failing ? E_FAIL : S_OK; }
};

template<class Interface>
class FakeObject : public Interface
{
public:
    FakeObject(Scene& scene, const char* name) : m_scene(scene), m_name(name) { scene.log.Name(this, name); }

    HRESULT STDMETHODCALLTYPE QueryInterface(REFIID, void**) override { return E_NOINTERFACE; }

    ULONG STDMETHODCALLTYPE AddRef() override { return static_cast<ULONG>(++m_references); }

    ULONG STDMETHODCALLTYPE Release() override
    {
        WriteCall("Release");
        return static_cast<ULONG>(--m_references);
    }

    long References() const { return m_references; }

protected:
    template<typename... Args>
    void WriteCall(const char* method, const Args&... args)
    {
        m_scene.log.WriteCall(m_name + "." + method, args...);
        CallTrace::Write(m_name + "." + method);
    }

    Scene& m_scene;

private:
    std::string m_name;
    long m_references = 0;
};

template<class Interface>
class FakeBitmapSource : public FakeObject<Interface>
{
public:
    using FakeObject<Interface>::FakeObject;

    HRESULT STDMETHODCALLTYPE GetSize(UINT*, UINT*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetPixelFormat(WICPixelFormatGUID*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE GetResolution(double*, double*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CopyPalette(IWICPalette*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CopyPixels(const WICRect*, UINT, UINT, BYTE*) override { return E_NOTIMPL; }
};

class FakeSource final : public FakeBitmapSource<IWICBitmap>
{
public:
    using FakeBitmapSource::FakeBitmapSource;

    HRESULT STDMETHODCALLTYPE Lock(const WICRect*, DWORD, IWICBitmapLock**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetPalette(IWICPalette*) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE SetResolution(double, double) override { return E_NOTIMPL; }
};

class FakeScaler final : public FakeBitmapSource<IWICBitmapScaler>
{
public:
    using FakeBitmapSource::FakeBitmapSource;

    HRESULT STDMETHODCALLTYPE Initialize(IWICBitmapSource* source, UINT width, UINT height,
                                         WICBitmapInterpolationMode mode) override
    {
        WriteCall("Initialize", source, width, height, mode);
        return m_scene.ResultOf(ImagingStep::InitializeScaler);
    }
};

class FakeConverter final : public FakeBitmapSource<IWICFormatConverter>
{
public:
    using FakeBitmapSource::FakeBitmapSource;

    HRESULT STDMETHODCALLTYPE Initialize(IWICBitmapSource* source, REFWICPixelFormatGUID format,
                                         WICBitmapDitherType dither, IWICPalette* palette,
                                         double alphaThreshold, WICBitmapPaletteType paletteType) override
    {
        WriteCall("Initialize", source, format, dither, palette, alphaThreshold, paletteType);
        return m_scene.ResultOf(ImagingStep::InitializeConverter);
    }

    HRESULT STDMETHODCALLTYPE CanConvert(REFWICPixelFormatGUID, REFWICPixelFormatGUID, BOOL*) override
    {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE GetSize(UINT* width, UINT* height) override
    {
        WriteCall("GetSize");
        const HRESULT result = m_scene.ResultOf(ImagingStep::GetSize);
        if (SUCCEEDED(result))
        {
            *width = static_cast<UINT>(m_scene.picture.Width());
            *height = static_cast<UINT>(m_scene.picture.Height());
        }
        return result;
    }

    HRESULT STDMETHODCALLTYPE CopyPixels(const WICRect* rect, UINT stride, UINT size, BYTE* bits) override
    {
        WriteCall("CopyPixels", rect->X, rect->Y, rect->Width, rect->Height, stride, size, bits);
        const HRESULT result = m_scene.ResultOf(ImagingStep::CopyPixels);
        if (SUCCEEDED(result))
            CopyPicture(stride, bits);
        return result;
    }

private:
    void CopyPicture(UINT stride, BYTE* bits) const
    {
        const ArgbImage& picture = m_scene.picture;
        for (int y = 0; y < picture.Height(); ++y)
        {
            for (int x = 0; x < picture.Width(); ++x)
            {
                const std::uint32_t pixel = picture.At(x, y);
                const std::size_t offset =
                    static_cast<std::size_t>(y) * stride + sizeof(pixel) * static_cast<std::size_t>(x);
                std::memcpy(bits + offset, &pixel, sizeof(pixel));
            }
        }
    }
};

// Hands out its three objects; everything else of an imaging factory is not there.
class FakeFactory final : public FakeObject<IWICImagingFactory>
{
public:
    explicit FakeFactory(Scene& scene)
        : FakeObject(scene, "factory"), m_source(scene, "source"), m_scaler(scene, "scaler"),
          m_converter(scene, "converter")
    {
        AddRef();
    }

    long ReferencesToOthers() const
    {
        return m_source.References() + m_scaler.References() + m_converter.References();
    }

    HRESULT STDMETHODCALLTYPE CreateBitmapFromHICON(HICON icon, IWICBitmap** created) override
    {
        WriteCall("CreateBitmapFromHICON", icon);
        return HandOut(ImagingStep::CreateSource, m_source, created);
    }

    HRESULT STDMETHODCALLTYPE CreateBitmapScaler(IWICBitmapScaler** created) override
    {
        WriteCall("CreateBitmapScaler");
        return HandOut(ImagingStep::CreateScaler, m_scaler, created);
    }

    HRESULT STDMETHODCALLTYPE CreateFormatConverter(IWICFormatConverter** created) override
    {
        WriteCall("CreateFormatConverter");
        return HandOut(ImagingStep::CreateConverter, m_converter, created);
    }

    HRESULT STDMETHODCALLTYPE CreateDecoderFromFilename(LPCWSTR, const GUID*, DWORD, WICDecodeOptions,
                                                        IWICBitmapDecoder**) override
    {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE CreateDecoderFromStream(IStream*, const GUID*, WICDecodeOptions,
                                                      IWICBitmapDecoder**) override
    {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE CreateDecoderFromFileHandle(ULONG_PTR, const GUID*, WICDecodeOptions,
                                                          IWICBitmapDecoder**) override
    {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE CreateBitmap(UINT, UINT, REFWICPixelFormatGUID, WICBitmapCreateCacheOption,
                                           IWICBitmap**) override
    {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE CreateBitmapFromSource(IWICBitmapSource*, WICBitmapCreateCacheOption,
                                                     IWICBitmap**) override
    {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE CreateBitmapFromSourceRect(IWICBitmapSource*, UINT, UINT, UINT, UINT,
                                                         IWICBitmap**) override
    {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE CreateBitmapFromMemory(UINT, UINT, REFWICPixelFormatGUID, UINT, UINT, BYTE*,
                                                     IWICBitmap**) override
    {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE CreateBitmapFromHBITMAP(HBITMAP, HPALETTE, WICBitmapAlphaChannelOption,
                                                      IWICBitmap**) override
    {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE CreateFastMetadataEncoderFromDecoder(IWICBitmapDecoder*,
                                                                   IWICFastMetadataEncoder**) override
    {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE CreateFastMetadataEncoderFromFrameDecode(IWICBitmapFrameDecode*,
                                                                       IWICFastMetadataEncoder**) override
    {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE CreateQueryWriter(REFGUID, const GUID*, IWICMetadataQueryWriter**) override
    {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE CreateQueryWriterFromReader(IWICMetadataQueryReader*, const GUID*,
                                                          IWICMetadataQueryWriter**) override
    {
        return E_NOTIMPL;
    }

    HRESULT STDMETHODCALLTYPE CreateComponentInfo(REFCLSID, IWICComponentInfo**) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE CreateDecoder(REFGUID, const GUID*, IWICBitmapDecoder**) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE CreateEncoder(REFGUID, const GUID*, IWICBitmapEncoder**) override
    {
        return E_NOTIMPL;
    }
    HRESULT STDMETHODCALLTYPE CreatePalette(IWICPalette**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateBitmapClipper(IWICBitmapClipper**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateBitmapFlipRotator(IWICBitmapFlipRotator**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateStream(IWICStream**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateColorContext(IWICColorContext**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateColorTransformer(IWICColorTransform**) override { return E_NOTIMPL; }
    HRESULT STDMETHODCALLTYPE CreateComponentEnumerator(DWORD, DWORD, IEnumUnknown**) override
    {
        return E_NOTIMPL;
    }

private:
    template<class Object, class Interface>
    HRESULT HandOut(ImagingStep step, Object& object, Interface** created)
    {
        const HRESULT result = m_scene.ResultOf(step);
        if (SUCCEEDED(result))
        {
            object.AddRef();
            *created = &object;
        }
        return result;
    }

    FakeSource m_source;
    FakeScaler m_scaler;
    FakeConverter m_converter;
};
}

class FakeImaging::Objects
{
public:
    Objects(CallLog& log, const ArgbImage& picture) : scene{log, picture}, factory(scene) {}

    Scene scene;
    FakeFactory factory;
};

FakeImaging::FakeImaging(CallLog& log, const ArgbImage& picture)
    : m_objects(std::make_unique<Objects>(log, picture))
{
}

FakeImaging::~FakeImaging() = default;

IWICImagingFactory* FakeImaging::Factory() const
{
    return &m_objects->factory;
}

long FakeImaging::FactoryReferences() const
{
    return m_objects->factory.References();
}

long FakeImaging::References() const
{
    return m_objects->factory.ReferencesToOthers();
}

void FakeImaging::FailAt(ImagingStep step)
{
    m_objects->scene.failing = step;
}
